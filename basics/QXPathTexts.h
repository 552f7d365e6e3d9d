// Parts of paths. Both "\" and "/" delimit, as everywhere in the host.
#pragma once

#include <string>
#include <string_view>
#include <vector>

[[nodiscard]] constexpr bool IsDelimiter(char Character)
{
    return Character == '/' || Character == '\\';
}

/// The part up to and with the last delimiter; empty without one.
[[nodiscard]] std::string FolderOfPath(std::string_view Path);
/// Folder and Path with one delimiter between them; Path alone in the current folder, which is empty.
[[nodiscard]] std::string JoinPath(std::string_view Folder, std::string_view Path);
/// The names of which a path consists; the first holds the root of an absolute one.
[[nodiscard]] std::vector<std::string> PathParts(std::string_view Path);
/// Whether Path is Folder or lies in it. Both are absolute, without symbolic links.
[[nodiscard]] bool IsInFolder(std::string_view Path, std::string_view Folder);
/// The text with "A" to "Z" as small letters.
[[nodiscard]] std::string LowerCase(std::string_view Text);
