// Loaded ahead of the C library into Mono. MONO_IOMAP makes Mono take "\" for a delimiter, but since Mono 6 the calls
// by which programs ask whether a file is there pass it by: the compiler finds neither a key file nor a framework
// assembly (System.XML.dll) whose name is spelled in another case. Here the calls of the C library themselves look
// for a path that is not there again, with "/" for "\" and ignoring case.
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <strings.h>
#include <sys/stat.h>
#include <type_traits>
#include <unistd.h>

namespace
{
/// The C library's own function of this name.
template <typename TFunction> TFunction* Original(const char* Name)
{
    return reinterpret_cast<TFunction*>(dlsym(RTLD_NEXT, Name));
}

/// Programs that Mono starts inherit this library; only Mono itself is meant.
bool IsMono()
{
    static const bool Result = [] {
        std::array<char, 4096> Buffer{};
        const ssize_t Length = readlink("/proc/self/exe", Buffer.data(), Buffer.size());
        const std::string_view Path(Buffer.data(), Length > 0 ? static_cast<std::size_t>(Length) : 0);
        return Path.substr(Path.rfind('/') + 1).starts_with("mono");
    }();
    return Result;
}

bool IsThere(const std::string& Path)
{
    static const auto Access = Original<int(const char*, int)>("access");
    return Access(Path.c_str(), F_OK) == 0;
}

/// The entry of Folder that is called Name but for its case, the first in byte order; empty if there is none.
std::string FindEntry(const std::string& Folder, const std::string& Name)
{
    static const auto Open = Original<DIR*(const char*)>("opendir");
    std::string Result;
    DIR* Entries = Open(Folder.empty() ? "." : Folder.c_str());
    if (Entries == nullptr)
        return Result;
    while (const dirent* Entry = readdir(Entries))
        if (strcasecmp(Entry->d_name, Name.c_str()) == 0 && (Result.empty() || Result > Entry->d_name))
            Result = Entry->d_name;
    closedir(Entries);
    return Result;
}

/// The path as it is spelled on disk, empty if there is none. With MayCreate only the folder has to be there.
std::string FindPath(const std::string& Path, bool MayCreate)
{
    if (Path.empty() || IsThere(Path))
        return Path;
    const std::size_t Delimiter = Path.rfind('/');
    const std::size_t FolderLength = Delimiter == std::string::npos ? 0 : Delimiter + 1;
    const std::string Name = Path.substr(FolderLength);
    if (Name.empty())
        return FindPath(Path.substr(0, Path.find_last_not_of('/') + 1), false);
    const std::string FolderPath = Path.substr(0, FolderLength > 1 ? FolderLength - 1 : FolderLength);
    std::string Folder = FindPath(FolderPath, false);
    if (Folder.empty() && FolderLength > 0)
        return {};
    const std::string Entry = FindEntry(Folder, Name);
    if (Entry.empty() && !MayCreate)
        return {};
    if (!Folder.empty() && Folder.back() != '/')
        Folder += '/';
    return Folder + (Entry.empty() ? Name : Entry);
}

/// Calls a function with a path, and once more with the path that was meant if there is none.
template <typename TCall> auto CallWith(const char* Path, bool MayCreate, const TCall& Call)
{
    const auto Result = Call(Path);
    const bool HasFailed = Result == decltype(Result)(-1) || (std::is_pointer_v<decltype(Result)> && !Result);
    if (!HasFailed || errno != ENOENT || !IsMono())
        return Result;
    std::string Slashed = Path;
    std::ranges::replace(Slashed, '\\', '/');
    const std::string Found = FindPath(Slashed, MayCreate);
    errno = ENOENT;
    return Found.empty() || Found == Path ? Result : Call(Found.c_str());
}

/// The same for a function whose first parameter is a path.
template <typename TResult, typename... TRest>
TResult Redirect(TResult (*Function)(const char*, TRest...), const char* Path, TRest... Rest)
{
    return CallWith(Path, false, [&](const char* Real) { return Function(Real, Rest...); });
}

int OpenWith(int (*Function)(const char*, int, ...), const char* Path, int Flags, va_list Arguments)
{
    const mode_t Mode = (Flags & O_CREAT) != 0 ? va_arg(Arguments, mode_t) : 0;
    return CallWith(Path, (Flags & O_CREAT) != 0, [&](const char* Real) { return Function(Real, Flags, Mode); });
}
} // namespace

extern "C" {
int open(const char* Path, int Flags, ...)
{
    static const auto Function = Original<int(const char*, int, ...)>("open");
    va_list Arguments;
    va_start(Arguments, Flags);
    const int Result = OpenWith(Function, Path, Flags, Arguments);
    va_end(Arguments);
    return Result;
}

int open64(const char* Path, int Flags, ...)
{
    static const auto Function = Original<int(const char*, int, ...)>("open64");
    va_list Arguments;
    va_start(Arguments, Flags);
    const int Result = OpenWith(Function, Path, Flags, Arguments);
    va_end(Arguments);
    return Result;
}

FILE* fopen(const char* Path, const char* Mode)
{
    static const auto Function = Original<FILE*(const char*, const char*)>("fopen");
    return Redirect(Function, Path, Mode);
}

int stat(const char* Path, struct stat* Status) noexcept
{
    static const auto Function = Original<int(const char*, struct stat*)>("stat");
    return Redirect(Function, Path, Status);
}

int lstat(const char* Path, struct stat* Status) noexcept
{
    static const auto Function = Original<int(const char*, struct stat*)>("lstat");
    return Redirect(Function, Path, Status);
}

int access(const char* Path, int Mode) noexcept
{
    static const auto Function = Original<int(const char*, int)>("access");
    return Redirect(Function, Path, Mode);
}

DIR* opendir(const char* Path)
{
    static const auto Function = Original<DIR*(const char*)>("opendir");
    return Redirect(Function, Path);
}

int chdir(const char* Path) noexcept
{
    static const auto Function = Original<int(const char*)>("chdir");
    return Redirect(Function, Path);
}

int unlink(const char* Path) noexcept
{
    static const auto Function = Original<int(const char*)>("unlink");
    return Redirect(Function, Path);
}

int rename(const char* From, const char* To) noexcept
{
    static const auto Function = Original<int(const char*, const char*)>("rename");
    return Redirect(Function, From, To);
}
} // extern "C"
