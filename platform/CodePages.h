// The numbers by which compilers know encodings.
#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace CodePages
{
struct TCodePage
{
    int Number;
    std::string_view Name;
    const char* Encoding; ///< as it is known where encodings have no numbers
};

/// By ascending numbers.
[[nodiscard]] std::span<const TCodePage> Known();
/// Of 0: that it is the system's own.
[[nodiscard]] std::string_view Name(int Number);
/// The numbers of those that this system can convert. Throws std::runtime_error with the reason.
[[nodiscard]] std::vector<int> Supported();
} // namespace CodePages
