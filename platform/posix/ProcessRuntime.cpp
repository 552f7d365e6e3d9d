#include "platform/CommandLines.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Processes.h"

#include <dlfcn.h>
#include <unistd.h>

namespace
{
/// The library that lets Mono find files whatever the case of their names. It lies beside the one that holds this
/// code; empty if it is not there, or in a folder whose name the loader would split.
std::string FileNamesLibrary()
{
    Dl_info Own{};
    if (dladdr(reinterpret_cast<const void*>(&ThroughRuntime), &Own) == 0)
        return {};
    const std::string Result =
        Paths::Expand(Paths::Join(Paths::Folder(Own.dli_fname), "QX40FileNames.so"), Files::CurrentFolder());
    const bool CanBeNamed = Result.find_first_of(" :") == std::string::npos;
    return CanBeNamed && access(Result.c_str(), R_OK) == 0 ? Result : std::string();
}

/// What lets programs that were written for Windows find their files: "\" delimits paths, and names are found
/// ignoring case.
std::vector<std::pair<std::string, std::string>> MonoEnvironment()
{
    static const std::string Library = FileNamesLibrary();
    std::vector<std::pair<std::string, std::string>> Result{{"MONO_IOMAP", "all"}};
    std::string Preloaded;
    if (!Library.empty())
        Result.emplace_back("LD_PRELOAD",
                            Environment::Get("LD_PRELOAD", Preloaded) ? Library + ":" + Preloaded : Library);
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
