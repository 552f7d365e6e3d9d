// How wide text stands in a terminal.
#pragma once

#include <cstddef>
#include <string_view>

namespace Texts
{
/// How many columns UTF-8 text takes: characters of East Asian scripts and pictures take two, marks that stand upon
/// another character none.
[[nodiscard]] std::size_t Width(std::string_view Text);
/// As much of the beginning as fits into so many columns.
[[nodiscard]] std::string_view FirstColumns(std::string_view Text, std::size_t Columns);
} // namespace Texts
