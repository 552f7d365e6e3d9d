#include "platform/CommandLines.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Processes.h"

#include <dlfcn.h>
#include <unistd.h>

namespace
{
const std::string FileNamesLibrary = "QX40FileNames.so";

using TEnvironment = std::vector<std::pair<std::string, std::string>>;

/// The folder of the library that lets Mono find files whatever the case of their names: it lies beside the one that
/// holds this code. Empty if it is not there, or in a folder whose name the loader would split.
std::string FileNamesFolder()
{
    Dl_info Own{};
    if (dladdr(reinterpret_cast<const void*>(&ThroughRuntime), &Own) == 0)
        return {};
    const std::string Result = Paths::Expand(Paths::Folder(Own.dli_fname), Files::CurrentFolder());
    const bool CanBeNamed = Result.find_first_of(":;") == std::string::npos;
    return CanBeNamed && access((Result + FileNamesLibrary).c_str(), R_OK) == 0 ? Result : std::string();
}

/// Puts Value in front of what a variable of the loader's holds already.
void AddInFront(TEnvironment& Environment, const std::string& Name, const std::string& Value)
{
    std::string Inherited;
    const bool HasMore = Environment::Get(Name, Inherited) && !Inherited.empty();
    Environment.emplace_back(Name, HasMore ? Value + ":" + Inherited : Value);
}

/// What lets programs that were written for Windows find their files: "\" delimits paths, and names are found
/// ignoring case.
TEnvironment MonoEnvironment()
{
    static const std::string Folder = FileNamesFolder();
    TEnvironment Result{{"MONO_IOMAP", "all"}};
    if (Folder.empty())
        return Result;
    // A blank would part the names in LD_PRELOAD; among the folders it is a character like others.
    const bool HasBlank = Folder.find(' ') != std::string::npos;
    AddInFront(Result, "LD_PRELOAD", HasBlank ? FileNamesLibrary : Folder + FileNamesLibrary);
    if (HasBlank)
        AddInFront(Result, "LD_LIBRARY_PATH", Paths::WithoutTrailing(Folder));
    return Result;
}
} // namespace

TProcessStart ThroughRuntime(TProcessStart Start)
{
    if (!IsDotNetAssembly(Start.Executable))
        return Start;
    // Mono starts in the process's folder, but the assembly was named from ours.
    const std::string Assembly = Paths::Expand(Start.Executable, Files::CurrentFolder());
    Start.Arguments = CommandLines::Quote(Assembly, true) + (Start.Arguments.empty() ? "" : " ") + Start.Arguments;
    Start.Executable = "mono";
    const auto Variables = MonoEnvironment();
    Start.Environment.insert(Start.Environment.begin(), Variables.begin(), Variables.end());
    return Start;
}
