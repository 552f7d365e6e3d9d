#include "platform/ProcessSystem.h"

#include "platform/CommandLines.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace
{
std::string FromCurrentFolder(const std::string& Name)
{
    if (Name.starts_with('/'))
        return Name;
    std::array<char, 4096> Folder{};
    return getcwd(Folder.data(), Folder.size()) == nullptr ? Name : std::string(Folder.data()) + "/" + Name;
}

/// The first file of this name in the folders of PATH that may be run, else the name itself. Empty and relative folders
/// are passed over: a tool must not come from whatever folder is the current one.
std::string FindInPath(const std::string& Name)
{
    const char* Variable = std::getenv("PATH");
    std::string_view Folders = Variable == nullptr ? "/usr/local/bin:/usr/bin:/bin" : Variable;
    while (!Folders.empty())
    {
        const std::string_view Folder = Folders.substr(0, Folders.find(':'));
        Folders.remove_prefix(std::min(Folders.size(), Folder.size() + 1));
        if (!Folder.starts_with('/'))
            continue;
        std::string Path = std::string(Folder) + "/" + Name;
        struct stat Status
        {
        };
        if (stat(Path.c_str(), &Status) == 0 && S_ISREG(Status.st_mode) && access(Path.c_str(), X_OK) == 0)
            return Path;
    }
    return Name;
}
} // namespace

namespace ProcessSystem
{
std::string ErrorReason(int Error)
{
    std::string Text = std::generic_category().message(Error);
    if (!Text.empty() && Text.front() >= 'A' && Text.front() <= 'Z')
        Text.front() = static_cast<char>(Text.front() - 'A' + 'a');
    return Text;
}

std::vector<std::string> ArgumentList(std::string_view Arguments)
{
    return CommandLines::Split(Arguments);
}

TExecutable FindExecutable(const std::string& Name)
{
    const bool HasFolder = Name.find('/') != std::string::npos;
    TExecutable Result{HasFolder ? FromCurrentFolder(Name) : FindInPath(Name), {}};
    struct stat Status
    {
    };
    if (!Result.Path.starts_with('/'))
        Result.Problem = ErrorReason(ENOENT);
    else if (stat(Result.Path.c_str(), &Status) != 0)
        Result.Problem = ErrorReason(errno);
    else if (!S_ISREG(Status.st_mode))
        Result.Problem = ErrorReason(S_ISDIR(Status.st_mode) ? EISDIR : EACCES);
    else if (access(Result.Path.c_str(), X_OK) != 0)
        Result.Problem = ErrorReason(errno);
    return Result;
}

bool HasRoomForFiles(int Count)
{
    const int Descriptor = Count > 0 ? fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0) : -1;
    if (Descriptor < 0)
        return Count == 0;
    const bool Result = HasRoomForFiles(Count - 1);
    close(Descriptor);
    return Result;
}

void EnlargePipe([[maybe_unused]] int Descriptor)
{
#if defined(F_SETPIPE_SZ)
    constexpr int Size = 1024 * 1024;
    fcntl(Descriptor, F_SETPIPE_SZ, Size);
#endif
}

std::string SignalName(int Signal)
{
    if (const char* Name = sigabbrev_np(Signal))
        return std::string("SIG") + Name;
    if (Signal >= SIGRTMIN && Signal <= SIGRTMAX)
        return "SIGRTMIN+" + std::to_string(Signal - SIGRTMIN);
    return "SIG" + std::to_string(Signal);
}
} // namespace ProcessSystem
