#pragma once

#include <optional>
#include <string_view>

/// What a compiler or a like tool says about a place: `file(line,col): error CODE: text`. The column, or the whole
/// place, may be missing. The texts are parts of the line.
struct TToolMessage
{
    bool IsError = false; ///< else a warning
    std::string_view File;
    std::string_view Line;
    std::string_view Column;
    std::string_view Code;
    std::string_view Text;
};

/// The message that a line is, none for any other line.
[[nodiscard]] std::optional<TToolMessage> ParseToolMessage(std::string_view Line);
