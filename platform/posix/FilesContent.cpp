// What is in files: reading, writing, replacing, copying.
#include "platform/FileTrees.h"
#include "platform/Paths.h"
#include "platform/posix/FilesReplacement.h"

#include <algorithm>
#include <climits>
#include <fcntl.h>
#include <new>

namespace
{
/// What is no ordinary file, a device or a pipe, may have no end.
constexpr std::size_t MaximumStream = 64U << 20U;
constexpr std::size_t MaximumFile = INT_MAX;

TDescriptor OpenForReading(const std::string& Path, struct stat& Status)
{
    TDescriptor File(::open(Path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!File.IsOpen() || ::fstat(File.Value(), &Status) != 0)
        throw SystemError(Path);
    if (S_ISDIR(Status.st_mode))
        throw SystemError(Path, EISDIR);
    return File;
}

/// Reads at most Size bytes; 0 at the end.
std::size_t ReadSome(const TDescriptor& File, const std::string& Path, char* Buffer, std::size_t Size)
{
    for (;;)
    {
        const ssize_t Count = ::read(File.Value(), Buffer, Size);
        if (Count >= 0)
            return static_cast<std::size_t>(Count);
        if (errno != EINTR)
            throw SystemError(Path);
    }
}

template <typename TUse> void ForEachPiece(const TDescriptor& File, const std::string& Path, TUse Use)
{
    std::string Buffer(std::size_t{256} << 10U, '\0');
    while (const std::size_t Count = ReadSome(File, Path, Buffer.data(), Buffer.size()))
        Use(std::string_view(Buffer).substr(0, Count));
}

void CopyContent(const std::string& From, const std::string& To)
{
    struct stat Status = {};
    const TDescriptor Source = OpenForReading(From, Status);
    TReplacement Target(FollowLinks(To), Status.st_mode & 0777);
    ForEachPiece(Source, From, [&](std::string_view Bytes) { Target.Write(Bytes); });
    Target.Finish();
}

/// A pipe would be waited for, and a device may have no end.
TDescriptor OpenOrdinary(const std::string& Path, struct stat& Status)
{
    if (GetStatus(Path, Status) && !S_ISREG(Status.st_mode) && !S_ISDIR(Status.st_mode))
        throw EFileError(Path, "It is no ordinary file");
    return OpenForReading(Path, Status);
}

/// What replaces a file, or makes one where there is none.
TReplacement ReplacementOf(const std::string& Path)
{
    struct stat Status = {};
    if (!GetStatus(Path, Status) || !S_ISREG(Status.st_mode))
        return TReplacement(Path);
    const TDescriptor Old(::open(Path.c_str(), O_RDONLY | O_CLOEXEC));
    return {Path, {Status, Old.IsOpen() ? AccessListOf(Old, Path) : std::string()}};
}

/// Takes back a file that could not be written to its end.
void RemoveHalf(const std::string& Path)
{
    struct stat Status = {};
    if (GetStatus(Path, Status) && S_ISREG(Status.st_mode))
        ::unlink(FollowLinks(Path).c_str());
}

/// Mode is that of a file that was not there.
void WriteInPlace(std::string_view Path, std::string_view Bytes, mode_t Mode)
{
    const std::string Target = SystemPath(Path);
    TDescriptor File(::open(Target.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, Mode));
    if (!File.IsOpen())
        throw SystemError(Target);
    try
    {
        WriteAll(File, Target, Bytes);
        if (!File.Close())
            throw SystemError(Target);
    }
    catch (const EFileError&)
    {
        RemoveHalf(Target);
        throw;
    }
}
} // namespace

std::string ReadAll(const TDescriptor& File, const std::string& Path, const struct stat& Status)
try
{
    const bool Ordinary = S_ISREG(Status.st_mode);
    const std::size_t Maximum = Ordinary ? MaximumFile : MaximumStream;
    const auto Expected = static_cast<std::size_t>(Status.st_size);
    std::string Result;
    std::size_t Length = 0;
    // One byte more than expected, so that the end is met without another buffer.
    for (std::size_t Size = std::max<std::size_t>(Expected + 1, 4096);; Size = 2 * Length)
    {
        if (Expected > Maximum || Length > Maximum)
            throw SystemError(Path, EFBIG);
        Result.resize(Size);
        while (Length < Size)
        {
            const std::size_t Count = ReadSome(File, Path, Result.data() + Length, Size - Length);
            Length += Count;
            if (Count == 0 || (Ordinary && Length == Expected))
            {
                Result.resize(Length);
                return Result;
            }
        }
    }
}
catch (const std::bad_alloc&)
{
    throw SystemError(Path, ENOMEM);
}

std::string Files::Read(std::string_view Path)
{
    const std::string Source = SystemPath(Path);
    struct stat Status = {};
    const TDescriptor File = OpenForReading(Source, Status);
    return ReadAll(File, Source, Status);
}

void Files::Write(std::string_view Path, std::string_view Bytes)
{
    WriteInPlace(Path, Bytes, 0666);
}

void Files::WritePrivate(std::string_view Path, std::string_view Bytes)
{
    WriteInPlace(Path, Bytes, 0600);
}

void Files::ReplaceContent(std::string_view Path, std::string_view Bytes, TFlush Flush)
{
    const std::string Target = FollowLinks(SystemPath(Path));
    // The folder's permissions alone decide about a rename, but a write-protected file is not to change.
    const bool Protected = ::faccessat(AT_FDCWD, Target.c_str(), W_OK, AT_EACCESS) != 0 && errno != ENOENT;
    if (Protected || IsReadOnly(Target))
        throw SystemError(Target, Protected ? errno : EACCES);
    RemoveLeftovers(Paths::Folder(Target));
    TReplacement Replacement = ReplacementOf(Target);
    Replacement.Write(Bytes);
    if (Flush == TFlush::Yes)
        Replacement.Flush();
    Replacement.Finish();
}

bool Files::Delete(std::string_view Path)
{
    return ::unlink(SystemPath(Path).c_str()) == 0 || errno == ENOENT || errno == ENOTDIR;
}

bool Files::Copy(std::string_view From, std::string_view To)
{
    try
    {
        CopyContent(SystemPath(From), SystemPath(To));
        return true;
    }
    catch (const EFileError&)
    {
        return false;
    }
}

void FileTrees::Read(std::string_view Path, const std::function<void(std::string_view Bytes)>& Use)
{
    struct stat Status = {};
    const std::string Source = SystemPath(Path);
    ForEachPiece(OpenOrdinary(Source, Status), Source, Use);
}

void FileTrees::Copy(std::string_view From, std::string_view To, const std::function<void()>& Between)
{
    struct stat Status = {};
    const std::string Path = SystemPath(From);
    const TDescriptor Source = OpenOrdinary(Path, Status);
    TReplacement Target(FollowLinks(SystemPath(To)), Status.st_mode & 0777);
    ForEachPiece(Source, Path, [&](std::string_view Bytes) {
        Between();
        Target.Write(Bytes);
    });
    Target.SetChanged(Status.st_mtim);
    Target.Finish();
}

struct TNewFile::TImpl
{
    explicit TImpl(std::string Path) : Replacement(std::move(Path)) {}
    TReplacement Replacement;
};

TNewFile::TNewFile(std::string_view Path) : FImpl(std::make_unique<TImpl>(FollowLinks(SystemPath(Path)))) {}

TNewFile::~TNewFile() = default;

void TNewFile::Write(std::string_view Bytes)
{
    FImpl->Replacement.Write(Bytes);
}

void TNewFile::Finish()
{
    FImpl->Replacement.Finish();
}
