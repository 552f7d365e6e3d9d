#include "platform/FileTrees.h"

#include "platform/Links.h"
#include "platform/Paths.h"
#include "platform/posix/FilesReplacement.h"

#include <algorithm>
#include <climits>
#include <fcntl.h>

namespace
{
TFileKind KindOf(const struct stat& Status)
{
    if (S_ISREG(Status.st_mode))
        return TFileKind::File;
    return S_ISDIR(Status.st_mode) ? TFileKind::Folder : TFileKind::Other;
}

std::string LinkTarget(int Folder, const char* Name)
{
    char Target[PATH_MAX];
    const ssize_t Length = ::readlinkat(Folder, Name, Target, sizeof Target);
    return Length < 0 ? std::string() : std::string(Target, static_cast<std::size_t>(Length));
}

/// Name counts from an open folder. Whether something is there.
bool ReadStatus(int Folder, const char* Name, TFileEntry& Entry)
{
    struct stat Status = {};
    if (::fstatat(Folder, Name, &Status, AT_SYMLINK_NOFOLLOW) != 0)
        return false;
    Entry.IsLink = S_ISLNK(Status.st_mode);
    if (Entry.IsLink)
        Entry.LinkTarget = LinkTarget(Folder, Name);
    if (Entry.IsLink && ::fstatat(Folder, Name, &Status, 0) != 0)
        return true;
    constexpr std::int64_t NanosecondsInSecond = 1'000'000'000;
    Entry.Kind = KindOf(Status);
    Entry.IsExecutable = (Status.st_mode & S_IXUSR) != 0;
    Entry.Changed = Status.st_mtim.tv_sec * NanosecondsInSecond + Status.st_mtim.tv_nsec;
    Entry.Size = static_cast<std::uint64_t>(Status.st_size);
    return true;
}
} // namespace

TFileEntry FileTrees::Entry(std::string_view Path)
{
    const std::string Place = Paths::WithoutTrailing(SystemPath(Path));
    TFileEntry Result;
    Result.Name = Paths::FileName(Place);
    static_cast<void>(ReadStatus(AT_FDCWD, Place.c_str(), Result));
    return Result;
}

std::vector<TFileEntry> FileTrees::Entries(std::string_view Folder)
{
    std::vector<TFileEntry> Result;
    const std::string Path = SystemPath(Folder.empty() ? "." : Folder);
    const TFolderHandle Handle = OpenFolder(Path);
    if (!Handle && errno != ENOENT && errno != ENOTDIR)
        throw SystemError(Path);
    while (Handle)
    {
        errno = 0;
        const dirent* Found = ::readdir(Handle.get());
        if (Found == nullptr && errno != 0)
            throw SystemError(Path);
        if (Found == nullptr)
            break;
        TFileEntry Entry;
        Entry.Name = static_cast<const char*>(Found->d_name);
        // What has gone meanwhile is not there.
        if (Entry.Name != "." && Entry.Name != ".." && !IsTemporaryName(Entry.Name) &&
            ReadStatus(::dirfd(Handle.get()), Found->d_name, Entry))
            Result.push_back(std::move(Entry));
    }
    std::sort(Result.begin(), Result.end(), [](const auto& Left, const auto& Right) { return Left.Name < Right.Name; });
    return Result;
}

std::string FileTrees::Resolve(std::string_view Path)
{
    const std::string Full = Files::Spelling(Paths::WithoutTrailing(Paths::Expand(Path, Files::CurrentFolder())));
    std::string There = Full;
    std::string Real = Links::Resolve(There);
    while (Real.empty() && Paths::Folder(There) != There)
    {
        There = Paths::WithoutTrailing(Paths::Folder(There));
        Real = Links::Resolve(There);
    }
    return Real.empty() ? Full : Paths::Normalise(Real + Full.substr(There.size()));
}

void FileTrees::Remove(std::string_view Path)
{
    const std::string Place = Paths::WithoutTrailing(SystemPath(Path));
    if (::unlink(Place.c_str()) == 0 || errno == ENOENT || errno == ENOTDIR)
        return;
    // Systems tell of a folder in different ways.
    if ((errno != EISDIR && errno != EPERM) || ::rmdir(Place.c_str()) != 0)
        throw SystemError(Place);
}
