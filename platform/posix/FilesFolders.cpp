// Folders: their entries, the current one and those of the user.
#include "platform/Paths.h"
#include "platform/posix/FilesPosix.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <pwd.h>

namespace
{
/// The next entry of a folder; null behind the last one.
const dirent* ReadEntry(DIR* Folder, const std::string& Path)
{
    errno = 0;
    const dirent* Entry = ::readdir(Folder);
    if (Entry == nullptr && errno != 0)
        throw SystemError(Path);
    return Entry;
}

/// Whether an entry is of a kind, for most kinds behind symbolic links.
bool IsKind(DIR* Folder, const dirent& Entry, Files::TEntryKind Kind)
{
    const bool WantsFolder = Kind != Files::TEntryKind::Files;
    if (Entry.d_type == DT_REG || Entry.d_type == DT_DIR)
        return (Entry.d_type == DT_DIR) == WantsFolder;
    struct stat Status = {};
    const int Flags = Kind == Files::TEntryKind::OwnFolders ? AT_SYMLINK_NOFOLLOW : 0;
    if (::fstatat(::dirfd(Folder), Entry.d_name, &Status, Flags) != 0)
        return false;
    return WantsFolder ? S_ISDIR(Status.st_mode) : S_ISREG(Status.st_mode);
}

std::string HomeFolder()
{
    std::string Home;
    if (Environment::Get("HOME", Home) && !Home.empty())
        return Home;
    passwd Record = {};
    passwd* Found = nullptr;
    char Buffer[16384];
    // An account without an entry, as containers have it, is at home in the root.
    if (::getpwuid_r(::getuid(), &Record, Buffer, sizeof Buffer, &Found) != 0 || Found == nullptr)
        return "/";
    return Record.pw_dir;
}

/// A base folder that a variable names, if it does so absolutely, or that lies in the home folder.
std::string BaseFolder(const char* Variable, std::string_view BelowHome)
{
    std::string Folder;
    if (!Environment::Get(Variable, Folder) || !Folder.starts_with('/'))
        Folder = Paths::Join(HomeFolder(), BelowHome);
    return Paths::WithoutTrailing(Folder);
}
} // namespace

TFolderHandle OpenFolder(const std::string& Path)
{
    return {::opendir(Path.c_str()), &::closedir};
}

std::vector<std::string> Files::Enumerate(std::string_view Folder, std::string_view Mask, TEntryKind Kind)
{
    std::vector<std::string> Result;
    const std::string Path = SystemPath(Folder.empty() ? "." : Folder);
    const TFolderHandle Handle = OpenFolder(Path);
    if (!Handle && errno != ENOENT && errno != ENOTDIR)
        throw SystemError(Path);
    while (const dirent* Entry = Handle ? ReadEntry(Handle.get(), Path) : nullptr)
    {
        const std::string_view Name = Entry->d_name;
        if (Name != "." && Name != ".." && MatchesMask(Name, Mask) && IsKind(Handle.get(), *Entry, Kind))
            Result.emplace_back(Name);
    }
    std::sort(Result.begin(), Result.end());
    return Result;
}

bool Files::ForceFolders(std::string_view Path)
{
    const std::string Target = Paths::WithTrailing(SystemPath(Path));
    struct stat Status = {};
    // Whether a step worked shows at the end: another process may have made the folder meanwhile.
    if (!GetStatus(Target, Status))
        for (std::size_t End = Target.find('/', 1); End != std::string::npos; End = Target.find('/', End + 1))
            ::mkdir(Target.substr(0, End).c_str(), 0777);
    return GetStatus(Target, Status);
}

std::string Files::CurrentFolder()
{
    char Buffer[PATH_MAX];
    return ::getcwd(Buffer, sizeof Buffer) != nullptr ? Buffer : std::string();
}

void Files::SetCurrentFolder(std::string_view Folder)
{
    const std::string Target = SystemPath(Folder);
    if (::chdir(Target.c_str()) != 0)
        throw SystemError(Target);
}

std::string Files::ProgramFile()
{
    char Buffer[PATH_MAX];
    const ssize_t Length = ::readlink("/proc/self/exe", Buffer, sizeof Buffer);
    return Length < 0 ? std::string() : std::string(Buffer, static_cast<std::size_t>(Length));
}

std::string Files::ConfigurationFolder()
{
    return BaseFolder("XDG_CONFIG_HOME", ".config");
}

std::string Files::StateFolder()
{
    return BaseFolder("XDG_STATE_HOME", ".local/state");
}

std::string Files::CacheFolder()
{
    return BaseFolder("XDG_CACHE_HOME", ".cache");
}

bool Environment::Get(const std::string& Name, std::string& Value)
{
    const char* Found = std::getenv(Name.c_str());
    if (Found != nullptr)
        Value = Found;
    return Found != nullptr;
}
