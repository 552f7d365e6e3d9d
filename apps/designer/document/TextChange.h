#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// What makes one text into another: the one place from the first to the last byte in which they differ.
struct TTextChange
{
    std::size_t Offset = 0;
    std::string Removed;
    std::string Inserted;

    [[nodiscard]] static TTextChange Between(std::string_view Old, std::string_view New);
    /// The new text from the old one, and back.
    [[nodiscard]] std::string Done(std::string Text) const;
    [[nodiscard]] std::string Undone(std::string Text) const;
};
