// New files until they are in their place, and what is left of them when a process dies.
#include "platform/Paths.h"
#include "platform/posix/FilesReplacement.h"

#include <algorithm>
#include <atomic>
#include <fcntl.h>
#include <sys/file.h>

namespace
{
constexpr std::string_view NameStart = ".quexley-";
constexpr std::string_view NameEnd = ".tmp";

std::string HandlePath(const TDescriptor& File)
{
    return "/proc/self/fd/" + std::to_string(File.Value());
}

/// A file without a name, if the file system knows such files and can name them later; else with errno set.
TDescriptor CreateNameless(const std::string& Folder, mode_t Mode)
{
    static const bool CanBeNamed = ::access("/proc/self/fd", X_OK) == 0;
    errno = EOPNOTSUPP;
    return TDescriptor(CanBeNamed ? ::open(Folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, Mode) : -1);
}

bool IsOpenFile(int Folder, const char* Name, const TDescriptor& File)
{
    struct stat Named = {};
    struct stat Open = {};
    return ::fstat(File.Value(), &Open) == 0 && S_ISREG(Open.st_mode) &&
           ::fstatat(Folder, Name, &Named, AT_SYMLINK_NOFOLLOW) == 0 && Named.st_ino == Open.st_ino &&
           Named.st_dev == Open.st_dev;
}

/// Removes a file that nobody holds the lock of.
void RemoveIfLeft(int Folder, const char* Name)
{
    const TDescriptor File(::openat(Folder, Name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (File.IsOpen() && ::flock(File.Value(), LOCK_EX | LOCK_NB) == 0 && IsOpenFile(Folder, Name, File))
        ::unlinkat(Folder, Name, 0);
}
} // namespace

bool IsTemporaryName(std::string_view Name)
{
    if (!Name.starts_with(NameStart) || !Name.ends_with(NameEnd))
        return false;
    Name.remove_prefix(NameStart.size());
    return Name.find_first_not_of("0123456789-") == Name.size() - NameEnd.size();
}

void Files::RemoveLeftovers(std::string_view Folder)
{
    const std::string Path = SystemPath(Folder.empty() ? "." : Folder);
    const TFolderHandle Handle = OpenFolder(Path);
    while (const dirent* Entry = Handle ? ::readdir(Handle.get()) : nullptr)
        if (IsTemporaryName(Entry->d_name))
            RemoveIfLeft(::dirfd(Handle.get()), Entry->d_name);
}

TTemporaryFile::TTemporaryFile(const std::string& Beside, mode_t Mode) : FFolder(Paths::Folder(Beside))
{
    FFile = CreateNameless(FFolder.empty() ? "." : FFolder, Mode);
    // Those that cannot do it say so in different ways.
    if (!FFile.IsOpen() && (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL))
        while (!CreateNamed(Mode))
            continue;
    if (!FFile.IsOpen())
        throw EFileError(Beside, "No file could be made in its folder: " + SystemError(Beside).Reason);
    if (FPath.empty())
        static_cast<void>(::flock(FFile.Value(), LOCK_EX | LOCK_NB));
}

TTemporaryFile::~TTemporaryFile()
{
    if (!FPath.empty())
        ::unlink(FPath.c_str());
}

std::string TTemporaryFile::NewName() const
{
    static std::atomic<unsigned> Number = 0;
    static const std::string Start = std::string(NameStart) + std::to_string(::getpid()) + "-";
    return (FFolder + Start).append(std::to_string(++Number)).append(NameEnd);
}

/// Makes the file under a name. False if it has to be tried again: the name was taken, or, before the lock was there,
/// another process took the file for a dead one's.
bool TTemporaryFile::CreateNamed(mode_t Mode)
{
    std::string Path = NewName();
    FFile = TDescriptor(::open(Path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, Mode));
    if (!FFile.IsOpen())
        return errno != EEXIST;
    static_cast<void>(::flock(FFile.Value(), LOCK_EX));
    if (!IsOpenFile(AT_FDCWD, Path.c_str(), FFile))
        return false;
    FPath = std::move(Path);
    return true;
}

/// There is no way to put a file without a name in the place of another at once.
void TTemporaryFile::GiveName()
{
    std::string Path;
    int Result = 0;
    do
        Path = NewName();
    while ((Result = ::linkat(AT_FDCWD, HandlePath(FFile).c_str(), AT_FDCWD, Path.c_str(), AT_SYMLINK_FOLLOW)) != 0 &&
           errno == EEXIST);
    if (Result == 0)
        FPath = std::move(Path);
}

void TTemporaryFile::Rename(const std::string& Path)
{
    if (FPath.empty())
        GiveName();
    // The first close says whether a file on another machine was written; the lock lasts until the last one.
    if (FPath.empty() || ::close(::dup(FFile.Value())) != 0 || ::rename(FPath.c_str(), Path.c_str()) != 0)
        throw SystemError(Path);
    FPath.clear();
    FFile = TDescriptor(-1);
}
