// What is in files: reading, writing, replacing, copying.
#include "platform/Paths.h"
#include "platform/posix/FilesPosix.h"

#include <algorithm>
#include <atomic>
#include <climits>
#include <fcntl.h>
#include <new>
#include <optional>

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

std::string ReadAll(const TDescriptor& File, const std::string& Path, const struct stat& Status)
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
            if (Count == 0)
            {
                Result.resize(Length);
                return Result;
            }
            Length += Count;
        }
    }
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

/// The file that a path stands for behind the symbolic links at its end, which need not be there.
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

/// A new file beside another one, gone with the object unless it was renamed.
class TTemporaryFile
{
public:
    TTemporaryFile(const std::string& Beside, mode_t Mode) : FFile(Create(Beside, Mode)) {}
    ~TTemporaryFile()
    {
        if (!FPath.empty())
            ::unlink(FPath.c_str());
    }
    TTemporaryFile(const TTemporaryFile&) = delete;
    TTemporaryFile& operator=(const TTemporaryFile&) = delete;

    [[nodiscard]] const TDescriptor& File() const { return FFile; }
    void Rename(const std::string& Path)
    {
        if (!FFile.Close() || ::rename(FPath.c_str(), Path.c_str()) != 0)
            throw SystemError(Path);
        FPath.clear();
    }

private:
    int Create(const std::string& Beside, mode_t Mode)
    {
        static std::atomic<unsigned> Number = 0;
        for (;;)
        {
            std::string Path = Paths::Folder(Beside) + ".quexley-" + std::to_string(::getpid()) + "-" +
                               std::to_string(++Number) + ".tmp";
            const int File = ::open(Path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, Mode);
            if (File < 0 && errno == EEXIST)
                continue;
            if (File < 0)
                throw SystemError(Beside);
            FPath = std::move(Path);
            return File;
        }
    }

    std::string FPath;
    TDescriptor FFile;
};

/// Puts a new file in the place of another when it is complete. Other hard links to the old file keep its content.
class TReplacement
{
public:
    /// Mode is that of the new file; none: the old one's, whose owner it then gets as well.
    TReplacement(std::string APath, std::optional<mode_t> Mode)
        : FPath(std::move(APath)), FReplaces(GetStatus(FPath, FOld)),
          FNew(FPath, FReplaces || Mode ? S_IRUSR | S_IWUSR : 0666)
    {
        if (FReplaces && !S_ISREG(FOld.st_mode))
            throw SystemError(FPath, S_ISDIR(FOld.st_mode) ? EISDIR : EINVAL);
        if (FReplaces && !Mode)
        {
            // Mostly nobody but the superuser may give a file away; rights to become its owner stay behind then.
            const bool Given = ::fchown(FNew.File().Value(), FOld.st_uid, FOld.st_gid) == 0;
            Mode = FOld.st_mode & (Given ? 07777 : 0777);
        }
        if (Mode && ::fchmod(FNew.File().Value(), *Mode) != 0)
            throw SystemError(FPath);
    }

    void Write(std::string_view Bytes) { WriteAll(FNew.File(), FPath, Bytes); }
    void Finish() { FNew.Rename(FPath); }

private:
    std::string FPath;
    struct stat FOld = {};
    bool FReplaces;
    TTemporaryFile FNew;
};

void CopyContent(const std::string& From, const std::string& To)
{
    struct stat Status = {};
    const TDescriptor Source = OpenForReading(From, Status);
    TReplacement Target(FollowLinks(To), Status.st_mode & 0777);
    std::string Buffer(std::size_t{256} << 10U, '\0');
    while (const std::size_t Count = ReadSome(Source, From, Buffer.data(), Buffer.size()))
        Target.Write(std::string_view(Buffer).substr(0, Count));
    Target.Finish();
}

/// Takes back a file that could not be written to its end.
void RemoveHalf(const std::string& Path)
{
    struct stat Status = {};
    if (GetStatus(Path, Status) && S_ISREG(Status.st_mode))
        ::unlink(FollowLinks(Path).c_str());
}
} // namespace

std::string Files::Read(std::string_view Path)
{
    const std::string Source = SystemPath(Path);
    struct stat Status = {};
    const TDescriptor File = OpenForReading(Source, Status);
    try
    {
        return ReadAll(File, Source, Status);
    }
    catch (const std::bad_alloc&)
    {
        throw SystemError(Source, ENOMEM);
    }
}

void Files::Write(std::string_view Path, std::string_view Bytes)
{
    const std::string Target = SystemPath(Path);
    TDescriptor File(::open(Target.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
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

void Files::ReplaceContent(std::string_view Path, std::string_view Bytes)
{
    const std::string Target = FollowLinks(SystemPath(Path));
    // The folder's permissions alone decide about a rename, but a write-protected file is not to change.
    const bool Protected = ::faccessat(AT_FDCWD, Target.c_str(), W_OK, AT_EACCESS) != 0 && errno != ENOENT;
    if (Protected || IsReadOnly(Target))
        throw SystemError(Target, Protected ? errno : EACCES);
    TReplacement Replacement(Target, std::nullopt);
    Replacement.Write(Bytes);
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
