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
struct TKnownKind
{
    TFileKind Kind = TFileKind::None;
    bool IsLink = false;
};

/// What an entry of an open folder is. Most systems tell it with the name.
TKnownKind KindOf(int Folder, const dirent& Entry)
{
    if (Entry.d_type == DT_REG)
        return {TFileKind::File};
    if (Entry.d_type == DT_DIR)
        return {TFileKind::Folder};
    TFileEntry Found;
    static_cast<void>(ReadStatus(Folder, Entry.d_name, Found));
    return {Found.Kind, Found.IsLink};
}

/// Gives the entries of a folder, as far as they are in their places, with the open folder.
template <typename TUse> void ForEachName(std::string_view Folder, TUse Use)
{
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
        const std::string_view Name = Found->d_name;
        if (Name != "." && Name != ".." && !IsTemporaryName(Name))
            Use(::dirfd(Handle.get()), *Found);
    }
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
    ForEachName(Folder, [&](int Handle, const dirent& Found) {
        TFileEntry Entry;
        Entry.Name = static_cast<const char*>(Found.d_name);
        // What has gone meanwhile is not there.
        if (ReadStatus(Handle, Found.d_name, Entry))
            Result.push_back(std::move(Entry));
    });
    std::sort(Result.begin(), Result.end(), [](const auto& Left, const auto& Right) { return Left.Name < Right.Name; });
    return Result;
}

TFolderNames FileTrees::Names(std::string_view Folder)
{
    TFolderNames Result;
    ForEachName(Folder, [&](int Handle, const dirent& Found) {
        const TKnownKind Known = KindOf(Handle, Found);
        if (Known.Kind == TFileKind::File)
            Result.Files.emplace_back(Found.d_name);
        else if (Known.Kind == TFileKind::Folder)
            (Known.IsLink ? Result.LinkedFolders : Result.Folders).emplace_back(Found.d_name);
    });
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
