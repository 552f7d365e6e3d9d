// Names that lead to files elsewhere.
#pragma once

#include <string>

namespace Links
{
/// The file or folder behind all links of the path; empty when there is none.
[[nodiscard]] std::string Resolve(const std::string& Path);
/// Whether both paths are there and lead to one file or folder.
[[nodiscard]] bool AreSame(const std::string& Left, const std::string& Right);
/// Makes Name lead to Target, in one step whatever stood there; others may do the same at the same time. Throws
/// EFileError.
void Place(const std::string& Name, const std::string& Target);
/// Removes the names in the folder that lead to nothing any more. Throws EFileError for a folder that cannot be read.
void RemoveDead(const std::string& Folder);
} // namespace Links
