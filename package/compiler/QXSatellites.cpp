#include "package/compiler/QXSatellites.h"

#include "host/QXFiles.h"
#include "host/QXProcess.h"
#include "package/compiler/QXCopyLocal.h"
#include "package/compiler/QXDotNetManagedCompilerAction.h"
#include "platform/AssemblyMetadata.h"
#include "platform/CommandLines.h"
#include "platform/Paths.h"

#include <algorithm>

namespace
{
/// The key file that the output's sources name relative to the project's folder, which the linker does not look in. It
/// finds one relative to the output by itself.
std::string KeyFileOfProject(const TQXManagedCompilerAction& Action)
{
    if (!QXFiles().FileExists(Action.OutputFile) || TCustomQXAction::IsDryRun())
        return {};
    const auto Output = ReadAssemblyMetadata(QXFiles().Read(Action.OutputFile));
    if (!Output || Output->KeyFile.empty() ||
        QXFiles().FileExists(Paths::Expand(Output->KeyFile, Paths::Folder(Action.OutputFile))))
        return {};
    return QXFiles().Find(Paths::Expand(Output->KeyFile, Action.ProjectDir));
}

/// The linker runs where the compiled resources lie, so that no folder's name is in the way.
std::string LinkerArguments(const TQXManagedCompilerAction& Action, const std::string& Culture,
                            const std::vector<std::string>& Resources, const std::string& Satellite)
{
    const TQXSatellites& Satellites = Action.Project.Satellites;
    std::string Result = "/nologo /target:lib /culture:" + Culture;
    const auto Add = [&Result](std::string_view Switch, const std::string& Value) {
        if (!Value.empty())
            Result.append(" ").append(Switch).append(CommandLines::Quote(Value, true));
    };
    Add("/template:", Action.OutputFile);
    Add("/keyfile:", KeyFileOfProject(Action));
    Add("/keyname:", Satellites.KeyContainer);
    if (Satellites.IsDelaySigned)
        Result += " /delaysign+";
    for (const std::string& Resource : Resources)
        Add("/embed:", std::string(Resource).append(",").append(Resource));
    Add("/out:", Satellite);
    return Result;
}

bool RunLinker(TQXManagedCompilerAction& Action, std::string Arguments)
try
{
    const auto Process = CreateQXProcess();
    Process->SetExecutable(Action.Project.Satellites.Linker);
    Process->SetOptionA(true);
    Process->SetOptionB(false);
    Process->SetOptionD(true);
    Process->SetOptionE(true);
    Process->SetEvents(&Action);
    Process->SetStartDirectory(Action.Project.Satellites.Folder);
    Process->SetArguments(std::move(Arguments));
    const int ExitCode = Process->Run();
    if (ExitCode != 0)
        Action.SendMessage("AL returned : " + std::to_string(ExitCode));
    return ExitCode == 0;
}
catch (const EQXProcessError& Error)
{
    Action.SendMessage(std::string("Error executing AL : ") + Error.what());
    return false;
}

/// Made in the object folder, so that a linker that fails leaves no half of one beside the output.
bool MakeSatellite(TQXManagedCompilerAction& Action, const std::string& Culture,
                   const std::vector<std::string>& Resources)
{
    const std::string Name = Paths::BareName(Action.OutputFile) + ".resources.dll";
    const std::string Made = Culture + Paths::Delimiter() + Name;
    const std::string Target = Paths::Folder(Action.OutputFile) + Made;
    const std::string& ObjectFolder = Action.Project.Satellites.Folder;
    for (const std::string& Folder : {Paths::Folder(ObjectFolder + Made), Paths::Folder(Target)})
        if (!QXFiles().ForceFolders(Folder))
        {
            Action.SendMessage("Unable to create output directory : " + Folder);
            return false;
        }
    if (!RunLinker(Action, LinkerArguments(Action, Culture, Resources, Made)))
    {
        Action.SendMessage("Error making satellite assembly : " + Target);
        return false;
    }
    QXFiles().WillMake(ObjectFolder + Made);
    return CopyBesideOutput(Action, ObjectFolder + Made, Target);
}
} // namespace

bool MakeSatellites(TQXManagedCompilerAction& Action)
{
    const auto& Resources = Action.Project.Satellites.Resources;
    return std::all_of(Resources.begin(), Resources.end(),
                       [&](const auto& Item) { return MakeSatellite(Action, Item.first, Item.second); });
}
