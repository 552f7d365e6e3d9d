// Paths of both styles as values: pure functions that never look at the disk. Both "\" and "/" delimit
// in either style; what is formed uses the style's own delimiter.
#pragma once

#include <string>
#include <string_view>

enum class TPathStyle { Posix, Windows };

#if defined(_WIN32)
inline constexpr TPathStyle NativePathStyle = TPathStyle::Windows;
#else
inline constexpr TPathStyle NativePathStyle = TPathStyle::Posix;
#endif

namespace Paths
{
[[nodiscard]] constexpr char Delimiter(TPathStyle Style = NativePathStyle)
{
    return Style == TPathStyle::Windows ? '\\' : '/';
}
[[nodiscard]] constexpr bool IsDelimiter(char Character)
{
    return Character == '/' || Character == '\\';
}

/// Whether the path stands for itself, whatever the current folder. A path with a drive counts as absolute
/// in both styles: joined to a folder it could mean nothing.
[[nodiscard]] bool IsAbsolute(std::string_view Path, TPathStyle Style = NativePathStyle);
/// Whether the path names a drive in the style that has none: no file or folder can be made there.
[[nodiscard]] bool IsForeign(std::string_view Path, TPathStyle Style = NativePathStyle);
/// With native delimiters, each once, and "." and ".." parts resolved; a trailing delimiter stays. ".."
/// parts that lead out of a relative path stay, those above a root vanish. An empty path stays empty.
[[nodiscard]] std::string Normalise(std::string_view Path, TPathStyle Style = NativePathStyle);
/// Path if it is absolute, else Folder and Path joined by one delimiter; not normalised.
[[nodiscard]] std::string Join(std::string_view Folder, std::string_view Path, TPathStyle Style = NativePathStyle);
/// Join and Normalise.
[[nodiscard]] std::string Expand(std::string_view Path, std::string_view Folder, TPathStyle Style = NativePathStyle);
/// Path relative to Folder, with ".." parts where it leads out; Path itself, normalised, when they have no
/// common root. Parts compare ignoring case in the Windows style.
[[nodiscard]] std::string RelativeTo(std::string_view Path, std::string_view Folder,
                                     TPathStyle Style = NativePathStyle);

/// The part up to and with the last delimiter (or a drive's colon); empty without one.
[[nodiscard]] std::string Folder(std::string_view Path, TPathStyle Style = NativePathStyle);
/// The part behind it.
[[nodiscard]] std::string FileName(std::string_view Path, TPathStyle Style = NativePathStyle);
/// The file name without its extension.
[[nodiscard]] std::string BareName(std::string_view Path, TPathStyle Style = NativePathStyle);
/// The last "." of the file name and what follows; empty without one.
[[nodiscard]] std::string Extension(std::string_view Path, TPathStyle Style = NativePathStyle);
/// Path with another extension (which brings its dot), added if there was none.
[[nodiscard]] std::string ChangeExtension(std::string_view Path, std::string_view Extension,
                                          TPathStyle Style = NativePathStyle);
/// Path with exactly one delimiter at its end; an empty path stays empty.
[[nodiscard]] std::string WithTrailing(std::string_view Path, TPathStyle Style = NativePathStyle);
/// Path without delimiters at its end; a root keeps its own.
[[nodiscard]] std::string WithoutTrailing(std::string_view Path, TPathStyle Style = NativePathStyle);
} // namespace Paths
