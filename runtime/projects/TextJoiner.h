#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Puts texts one behind the other, with a blank line between those that did not stand together before.
class TTextJoiner
{
public:
    explicit TTextJoiner(std::string_view LineEnd) : FLineEnd(LineEnd) {}

    /// A section of the old text, and its place among them.
    void AddOld(std::size_t Place, std::string_view Text);
    /// A new section, which ends its lines; nothing if it is empty.
    void AddNew(std::string_view Text);
    /// The whole text; the old one had so many sections.
    [[nodiscard]] std::string Finish(std::size_t Places);

private:
    void RemoveBlankLinesAtEnd();
    void SeparateByBlankLine();

    std::string_view FLineEnd;
    std::string FText;
    std::size_t FNextPlace = 0;
};
