#include "platform/ProcessSystem.h"

#include "platform/CommandLines.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace
{
/// The reason behind an error number, worded as libuv does.
std::string Reason(int Error)
{
    std::string Text = std::generic_category().message(Error);
    if (!Text.empty() && Text.front() >= 'A' && Text.front() <= 'Z')
        Text.front() = static_cast<char>(Text.front() - 'A' + 'a');
    return Text;
}

std::string FromCurrentFolder(const std::string& Name)
{
    if (Name.starts_with('/'))
        return Name;
    std::array<char, 4096> Folder{};
    return getcwd(Folder.data(), Folder.size()) == nullptr ? Name : std::string(Folder.data()) + "/" + Name;
}

/// The first file of this name in the folders of PATH that may be run, else the name itself.
std::string FindInPath(const std::string& Name)
{
    const char* Variable = std::getenv("PATH");
    std::string_view Folders = Variable == nullptr ? "/usr/local/bin:/usr/bin:/bin" : Variable;
    while (!Folders.empty())
    {
        const std::string_view Folder = Folders.substr(0, Folders.find(':'));
        Folders.remove_prefix(std::min(Folders.size(), Folder.size() + 1));
        std::string Path = FromCurrentFolder(std::string(Folder.empty() ? "." : Folder) + "/" + Name);
        struct stat Status
        {
        };
        if (stat(Path.c_str(), &Status) == 0 && S_ISREG(Status.st_mode) && access(Path.c_str(), X_OK) == 0)
            return Path;
    }
    return Name;
}

/// Whether the system starts files of further formats.
bool KnowsMoreFormats()
{
    DIR* Folder = opendir("/proc/sys/fs/binfmt_misc");
    if (Folder == nullptr)
        return false;
    int Count = 0;
    while (readdir(Folder) != nullptr)
        ++Count;
    closedir(Folder);
    constexpr int EntriesOfNone = 4; // ".", "..", "register" and "status"
    return Count > EntriesOfNone;
}

/// Whether the file's first bytes are those of a program or a script with an interpreter line. Looked at here since
/// the C library gives all other files to a shell.
bool HasProgramFormat(const std::string& Path)
{
    const int Descriptor = open(Path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (Descriptor < 0)
        return true; // it may be run without being read
    std::array<char, 4> Start{};
    const ssize_t Count = read(Descriptor, Start.data(), Start.size());
    close(Descriptor);
    const std::string_view Bytes(Start.data(), Count > 0 ? static_cast<std::size_t>(Count) : 0);
    return Bytes == "\x7f"
                    "ELF" ||
           Bytes.starts_with("#!") || KnowsMoreFormats();
}
} // namespace

namespace ProcessSystem
{
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
        Result.Problem = Reason(ENOENT);
    else if (stat(Result.Path.c_str(), &Status) != 0)
        Result.Problem = Reason(errno);
    else if (!S_ISREG(Status.st_mode))
        Result.Problem = Reason(S_ISDIR(Status.st_mode) ? EISDIR : EACCES);
    else if (access(Result.Path.c_str(), X_OK) != 0)
        Result.Problem = Reason(errno);
    else if (!HasProgramFormat(Result.Path))
        Result.Problem = Reason(ENOEXEC);
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
