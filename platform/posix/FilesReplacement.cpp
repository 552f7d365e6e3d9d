#include "platform/posix/FilesReplacement.h"

#include "platform/Paths.h"

#include <algorithm>
#include <climits>
#include <fcntl.h>
#include <sys/xattr.h>

namespace
{
constexpr mode_t PermissionBits = 07777;
constexpr const char* AccessListName = "system.posix_acl_access";

/// What is no ordinary file, a device or a folder, is not to be replaced by one.
std::string Replaceable(std::string Path)
{
    struct stat Status = {};
    if (GetStatus(Path, Status) && !S_ISREG(Status.st_mode))
        throw SystemError(Path, S_ISDIR(Status.st_mode) ? EISDIR : EINVAL);
    return Path;
}

/// The mode with which a file like Model is made: nobody else may look in before it has its owner.
mode_t FirstMode(const struct stat& Model)
{
    static const uid_t Self = ::geteuid();
    return Model.st_uid == Self ? Model.st_mode & PermissionBits : S_IRUSR | S_IWUSR;
}
} // namespace

std::string AccessListOf(const TDescriptor& File, const std::string& Path)
{
    char List[4096];
    const ssize_t Size = ::fgetxattr(File.Value(), AccessListName, List, sizeof List);
    // No list, or none on this file system.
    if (Size < 0 && (errno == ENODATA || errno == ENOTSUP))
        return {};
    if (Size < 0)
        throw SystemError(Path);
    return {List, static_cast<std::size_t>(Size)};
}

void WriteAll(const TDescriptor& File, const std::string& Path, std::string_view Bytes)
{
    while (!Bytes.empty())
    {
        const ssize_t Count = ::write(File.Value(), Bytes.data(), Bytes.size());
        if (Count >= 0)
            Bytes.remove_prefix(static_cast<std::size_t>(Count));
        else if (errno != EINTR)
            throw SystemError(Path);
    }
}

std::string FollowLinks(std::string Path)
{
    constexpr int MaximumLinks = 40;
    char Target[PATH_MAX];
    for (int Links = 0; Links <= MaximumLinks; ++Links)
    {
        const ssize_t Length = ::readlink(Path.c_str(), Target, sizeof Target);
        if (Length < 0)
            return Path;
        const std::string_view Text(Target, static_cast<std::size_t>(Length));
        Path = Text.starts_with('/') ? std::string(Text) : Paths::Folder(Path).append(Text);
    }
    throw SystemError(Path, ELOOP);
}

TReplacement::TReplacement(std::string Path) : FPath(Replaceable(std::move(Path))), FNew(FPath, 0666) {}

TReplacement::TReplacement(std::string Path, mode_t Mode)
    : FPath(Replaceable(std::move(Path))), FNew(FPath, S_IRUSR | S_IWUSR)
{
    if (::fchmod(FNew.File().Value(), Mode) != 0)
        throw SystemError(FPath);
}

TReplacement::TReplacement(std::string Path, const TModelFile& Model)
    : FPath(std::move(Path)), FNew(FPath, FirstMode(Model.Status))
{
    TakeOver(Model);
}

/// Who could use the old file can use the new one, and nobody else: a replacement for which that cannot be had is none.
void TReplacement::TakeOver(const TModelFile& Model)
{
    const int File = FNew.File().Value();
    struct stat Status = {};
    if (::fstat(File, &Status) != 0)
        throw SystemError(FPath);
    const bool SameOwner = Status.st_uid == Model.Status.st_uid && Status.st_gid == Model.Status.st_gid;
    if (!SameOwner && ::fchown(File, Model.Status.st_uid, Model.Status.st_gid) != 0)
        throw EFileError(FPath, "Its owner or group could not be kept: " + SystemError(FPath).Reason);
    const bool SameList = TakeAccessList(Model.AccessList);
    const mode_t Mode = Model.Status.st_mode & PermissionBits;
    if ((!SameOwner || !SameList || Mode != (Status.st_mode & PermissionBits)) && ::fchmod(File, Mode) != 0)
        throw SystemError(FPath);
}

/// Gives the new file the access list, also an empty one in the place of that which the folder brought; true if it had
/// it already.
bool TReplacement::TakeAccessList(const std::string& List)
{
    const int File = FNew.File().Value();
    const std::string Brought = AccessListOf(FNew.File(), FPath);
    if (Brought == List)
        return true;
    const int Result = List.empty() ? ::fremovexattr(File, AccessListName)
                                    : ::fsetxattr(File, AccessListName, List.data(), List.size(), 0);
    if (Result != 0)
        throw SystemError(FPath);
    return false;
}

void TReplacement::Flush() const
{
    if (::fdatasync(FNew.File().Value()) != 0)
        throw SystemError(FPath);
}

void TReplacement::SetChanged(const timespec& Time) const
{
    const timespec Times[] = {{0, UTIME_NOW}, Time};
    if (::futimens(FNew.File().Value(), Times) != 0)
        throw SystemError(FPath);
}

void TReplacement::Write(std::span<const std::string_view> Pieces)
{
    constexpr std::size_t BlockSize = 64U << 10U;
    std::size_t Size = 0;
    for (const std::string_view Piece : Pieces)
        Size += Piece.size();
    std::string Block;
    Block.reserve(std::min(Size, BlockSize));
    for (const std::string_view Piece : Pieces)
    {
        if (Block.size() + Piece.size() > BlockSize)
        {
            Write(Block);
            Block.clear();
        }
        if (Piece.size() > BlockSize)
            Write(Piece);
        else
            Block += Piece;
    }
    Write(Block);
}
