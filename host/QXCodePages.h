#pragma once

#include <string>
#include <vector>

/// What a code page is for, as "Western European (Windows)"; 0 is the system's own.
[[nodiscard]] std::string CodePageToString(int CodePage);
/// The numbers of the code pages that this system can convert, in ascending order. Throws std::runtime_error with the
/// system's reason.
[[nodiscard]] std::vector<int> QXSupportedCodePages();
