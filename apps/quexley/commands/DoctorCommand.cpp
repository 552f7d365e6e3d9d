#include "apps/quexley/Answer.h"
#include "apps/quexley/commands/Commands.h"
#include "host/QXDotNetInfo.h"
#include "host/QXExecuteAction.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "runtime/HostErrors.h"
#include "runtime/Project.h"
#include "runtime/Runtime.h"
#include "runtime/actions/RunContext.h"
#include "runtime/log/NoEvents.h"

#include <fmt/format.h>

#include <optional>

namespace
{
using TRows = std::vector<std::vector<std::string>>;

constexpr int ToolIsMissing = 1;

std::string FileState(const std::string& File)
{
    if (File.empty())
        return "none";
    return Files::FileExists(File) ? File : File + " (not there)";
}

/// What this machine has, for whatever project.
std::string Machine(const TArguments& Arguments, TQXRuntime& Runtime)
{
    const TOptionsFile& Options = Runtime.Options();
    std::string Registry = Arguments.RegistryFile;
    if (Registry.empty() && !Options.Host().Registry.empty())
        Registry = Paths::Expand(Options.Host().Registry, Paths::Folder(Options.FileName()));
    TRows Rows = {{"Options file", FileState(Options.FileName())}, {"Registry file", FileState(Registry)}};
    const IQXDotNetInfo& Info = QXDotNetInfo();
    for (int Index = 0; Index < Info.GetVersionCount(); ++Index)
    {
        const IQXDotNetVersionInfo& Version = Info.GetVersionByIndex(Index);
        const auto Place = [](const std::string& Path) { return Path.empty() ? "not installed" : Path; };
        Rows.push_back({".NET " + Version.GetVersionName(), "framework " + Place(Version.GetFrameworkPath())});
        Rows.push_back({"", "SDK " + Place(Version.GetSDKPath())});
    }
    if (Info.GetVersionCount() == 0)
        Rows.push_back({".NET", "no version found"});
    return AlignColumns(Rows);
}

/// The tool that an action would start, or what is wrong with it.
std::string ToolOf(const TProjectAction& Action, const TVariables& Variables, bool& IsMissing)
{
    auto* Runs = dynamic_cast<TQXExecuteAbstractAction*>(Action.Object.get());
    if (!Runs)
        return "needs no tool";
    TNoEvents Nowhere;
    const TRunContext Context(*Action.Object, {.Index = Action.Index}, Variables, Nowhere);
    const std::string Tool = Runs->GetExecutable();
    const std::string Found = Tool.empty() ? Tool : Files::Find(Tool);
    IsMissing = Found.empty() || !Files::FileExists(Found);
    if (Tool.empty())
        return "missing: its place is not set, see quexley options";
    return IsMissing ? "missing: " + Tool : Found;
}

/// The tools of the enabled actions; Missing counts those that are not there.
std::string Tools(const TProject& Project, int& Missing)
{
    TRows Rows;
    const TVariables Variables = Project.ExpressionVariables();
    Files::SetCurrentFolder(Project.Folder);
    for (const TProjectAction& Action : Project.Actions)
    {
        if (!Action.Enabled)
            continue;
        bool IsMissing = false;
        Rows.push_back({std::to_string(Action.Index), Action.Name, ToolOf(Action, Variables, IsMissing)});
        Missing += IsMissing ? 1 : 0;
    }
    return AlignColumns(Rows, "  ");
}

/// The project, none where the user names none and none is found; one that is found and wrong is an error.
std::optional<TProject> LoadProject(const std::string& Path)
try
{
    return TProject::Load(Path);
}
catch (const EHostFileError& Error)
{
    if (!Path.empty() || !Error.Findings().front().File.empty())
        throw;
    return std::nullopt;
}
} // namespace

int DoctorCommand(const TArguments& Arguments, TQXRuntime& Runtime)
{
    std::string Text = Machine(Arguments, Runtime);
    const std::optional<TProject> Loaded = LoadProject(Arguments.Project);
    if (!Loaded)
        return WriteAnswer(Text + "No project here.\n");
    const TProject& Project = *Loaded;
    int Missing = 0;
    Text += fmt::format("Project {}\n{}", Project.File, Tools(Project, Missing));
    Text += Missing == 0   ? "Nothing is missing.\n"
            : Missing == 1 ? "1 tool is missing.\n"
                           : fmt::format("{} tools are missing.\n", Missing);
    WriteAnswer(Text);
    return Missing == 0 ? 0 : ToolIsMissing;
}
