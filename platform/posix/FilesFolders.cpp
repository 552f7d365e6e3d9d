// Folders: their entries, the current one and those of the user.
#include "platform/Paths.h"
#include "platform/posix/FilesReplacement.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <pwd.h>
#include <system_error>

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

constexpr mode_t ForOthersToWrite = S_IWGRP | S_IWOTH;

bool MakeFolder(const std::string& Path, mode_t Mode)
{
    const bool IsMade = ::mkdir(Path.c_str(), Mode) == 0;
    // The umask leaves little where it is strict.
    return IsMade && (Mode != S_IRWXU || ::chmod(Path.c_str(), Mode) == 0);
}

bool MakeFolders(std::string_view Path, mode_t Mode)
{
    const std::string Target = Paths::WithTrailing(SystemPath(Path));
    struct stat Status = {};
    // Whether a step worked shows at the end: another process may have made the folder meanwhile.
    if (!GetStatus(Target, Status))
        for (std::size_t End = Target.find('/', 1); End != std::string::npos; End = Target.find('/', End + 1))
            static_cast<void>(MakeFolder(Target.substr(0, End), Mode));
    return GetStatus(Target, Status);
}

/// Whether a folder is this user's and no link.
bool IsOwnFolder(const std::string& Path, struct stat& Status)
{
    return ::lstat(Path.c_str(), &Status) == 0 && S_ISDIR(Status.st_mode) && Status.st_uid == ::geteuid();
}

/// Whether no other user can put a folder into this one in the place of ours.
bool IsTrustedBase(const std::string& Path)
{
    struct stat Status = {};
    if (!GetStatus(Path, Status) || (Status.st_uid != ::geteuid() && Status.st_uid != 0))
        return false;
    return (Status.st_mode & S_IWOTH) == 0 || (Status.st_mode & S_ISVTX) != 0;
}

bool ForceTrustedFolder(const std::string& Path)
{
    struct stat Status = {};
    std::error_code Error;
    if (IsOwnFolder(Path, Status) && (Status.st_mode & ForOthersToWrite) != 0)
        std::filesystem::remove_all(Path, Error);
    static_cast<void>(MakeFolder(Path, S_IRWXU));
    return IsOwnFolder(Path, Status) && (Status.st_mode & ForOthersToWrite) == 0;
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
        if (Name != "." && Name != ".." && !IsTemporaryName(Name) && MatchesMask(Name, Mask) &&
            IsKind(Handle.get(), *Entry, Kind))
            Result.emplace_back(Name);
    }
    std::sort(Result.begin(), Result.end());
    return Result;
}

bool Files::ForceFolders(std::string_view Path)
{
    return MakeFolders(Path, 0777);
}

bool Files::ForcePrivateFolders(std::string_view Path)
{
    return MakeFolders(Path, S_IRWXU);
}

bool Files::ForceTrustedFolders(std::string_view Base, std::string_view Below)
{
    std::string Folder = Paths::WithTrailing(SystemPath(Base));
    if (!MakeFolders(Folder, S_IRWXU) || !IsTrustedBase(Folder))
        return false;
    for (std::size_t Begin = 0; Begin < Below.size(); Folder += '/')
    {
        const std::size_t End = std::min(Below.find('/', Begin), Below.size());
        Folder += Below.substr(Begin, End - Begin);
        if (!ForceTrustedFolder(Folder))
            return false;
        Begin = End + 1;
    }
    return true;
}

bool Files::MakePrivateFolder(std::string_view Path)
{
    return MakeFolder(SystemPath(Path), S_IRWXU);
}

void Files::DeleteTree(const std::string& Folder)
{
    std::error_code Error;
    std::filesystem::remove_all(Folder, Error);
}

std::int64_t Files::FolderStamp(std::string_view Folder)
{
    return ChangeTime(Folder);
}

std::int64_t Files::ChangeTime(std::string_view Path)
{
    struct stat Status = {};
    constexpr std::int64_t NanosecondsInSecond = 1'000'000'000;
    return GetStatus(SystemPath(Path), Status) ? Status.st_mtim.tv_sec * NanosecondsInSecond + Status.st_mtim.tv_nsec
                                               : 0;
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

std::string Files::TemporaryFolder()
{
    std::string Folder;
    return Environment::Get("TMPDIR", Folder) && !Folder.empty() ? Folder : "/tmp";
}

std::string Files::MakeTemporaryFolder(std::string_view Prefix)
{
    std::string Folder = Paths::Join(TemporaryFolder(), std::string(Prefix) + "-XXXXXX");
    if (::mkdtemp(Folder.data()) == nullptr || ::chmod(Folder.c_str(), S_IRWXU) != 0)
        throw SystemError(Folder);
    return Folder;
}

bool Environment::Get(const std::string& Name, std::string& Value)
{
    const char* Found = std::getenv(Name.c_str());
    if (Found != nullptr)
        Value = Found;
    return Found != nullptr;
}

std::vector<std::string> Environment::SearchFolders()
{
    std::vector<std::string> Result;
    std::string Folders;
    if (!Get("PATH", Folders))
        return Result;
    for (std::size_t Begin = 0; Begin < Folders.size();)
    {
        const std::size_t End = std::min(Folders.find(':', Begin), Folders.size());
        Result.push_back(Folders.substr(Begin, End - Begin));
        Begin = End + 1;
    }
    return Result;
}
