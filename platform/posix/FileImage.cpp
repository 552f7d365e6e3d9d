#include "platform/posix/FileImage.h"

#include "platform/Paths.h"
#include "platform/posix/FilesReplacement.h"

#include <fcntl.h>
#include <utility>

namespace
{
/// Opens what lies at exactly this path; a symbolic link at its end becomes what it stands for. A pipe without a
/// writer is not waited for.
TDescriptor OpenExactly(TFileImage& Image)
{
    std::string& Path = Image.Path;
    constexpr int Flags = O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    TDescriptor File(::open(Path.c_str(), Flags | O_NOFOLLOW));
    if (File.IsOpen() || errno != ELOOP)
        return File;
    Image.IsBehindLink = true;
    Path = FollowLinks(std::move(Path));
    return TDescriptor(::open(Path.c_str(), Flags));
}

/// Whether a failure to open a file means that there is none at this path.
bool IsMissing(int Number)
{
    return Number == ENOENT || Number == ENOTDIR;
}

TDescriptor OpenIgnoringCase(TFileImage& Image)
{
    TDescriptor File = OpenExactly(Image);
    if (File.IsOpen() || !IsMissing(errno))
        return File;
    Image.Path = SystemPath(Image.Path);
    return OpenExactly(Image);
}

TFileRewrite::TState StateOfUnopened(TFileImage& Image, int Number)
{
    if (IsMissing(Number))
        return TFileRewrite::TState::Missing;
    // One that nobody may read mostly is one that nobody may write.
    if (GetStatus(Image.Path, Image.Status) && HasNoWriteBit(Image.Status))
        return TFileRewrite::TState::ReadOnly;
    throw SystemError(Image.Path, Number);
}

TFileRewrite::TState StateOfOpened(const TFileImage& Image)
{
    if (S_ISDIR(Image.Status.st_mode))
        return TFileRewrite::TState::Missing;
    if (!S_ISREG(Image.Status.st_mode))
        throw EFileError(Image.Path, "Not an ordinary file");
    return HasNoWriteBit(Image.Status) ? TFileRewrite::TState::ReadOnly : TFileRewrite::TState::Loaded;
}

bool IsSame(const timespec& Left, const timespec& Right)
{
    return Left.tv_sec == Right.tv_sec && Left.tv_nsec == Right.tv_nsec;
}

bool HasChangedNothing(const struct stat& Now, const struct stat& Then)
{
    return Now.st_size == Then.st_size && IsSame(Now.st_ctim, Then.st_ctim);
}
} // namespace

TFileImage LoadImage(const std::string& Path, std::size_t MaximumSize)
{
    TFileImage Image;
    Image.ReadSince = std::chrono::steady_clock::now();
    // A path with a NUL names no file, but the system would take the NUL as its end.
    Image.Path = Path.find('\0') == std::string::npos ? Paths::Normalise(Path) : std::string();
    Image.File = OpenIgnoringCase(Image);
    if (!Image.File.IsOpen())
    {
        Image.State = StateOfUnopened(Image, errno);
        return Image;
    }
    if (::fstat(Image.File.Value(), &Image.Status) != 0)
        throw SystemError(Image.Path);
    Image.State = StateOfOpened(Image);
    if (Image.State != TFileRewrite::TState::Loaded)
        return Image;
    if (static_cast<std::size_t>(Image.Status.st_size) > MaximumSize)
        throw SystemError(Image.Path, EFBIG);
    Image.Bytes = ReadAll(Image.File, Image.Path, Image.Status);
    Image.AccessList = AccessListOf(Image.File, Image.Path);
    return Image;
}

bool IsOld(const TFileImage& Image)
{
    constexpr std::chrono::milliseconds While{5};
    return std::chrono::steady_clock::now() - Image.ReadSince >= While;
}

bool IsAtItsPath(const TFileImage& Image)
{
    struct stat Found = {};
    return ::lstat(Image.Path.c_str(), &Found) == 0 && Found.st_ino == Image.Status.st_ino &&
           Found.st_dev == Image.Status.st_dev;
}

/// Any change to a file, also that another one has taken its path, shows in its size or in the time of its status.
bool IsCurrent(const TFileImage& Image)
{
    struct stat Now = {};
    return ::fstat(Image.File.Value(), &Now) == 0 && HasChangedNothing(Now, Image.Status) &&
           (!IsOld(Image) || IsAtItsPath(Image));
}

bool IsUnchanged(const std::string& Path, const struct stat& Then)
{
    struct stat Now = {};
    return ::lstat(Path.c_str(), &Now) == 0 && Now.st_ino == Then.st_ino && Now.st_dev == Then.st_dev &&
           HasChangedNothing(Now, Then);
}
