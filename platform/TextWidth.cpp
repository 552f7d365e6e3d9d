#include "platform/TextWidth.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace
{
struct TRange
{
    char32_t First;
    char32_t Last;
};

/// In ascending order. Scripts whose marks people write by the letter count as the terminals count them.
constexpr std::array<TRange, 34> WithoutWidth = {
    {{0x0300, 0x036F}, {0x0483, 0x0489},   {0x0591, 0x05BD},   {0x05BF, 0x05BF},  {0x05C1, 0x05C2}, {0x05C4, 0x05C5},
     {0x0610, 0x061A}, {0x064B, 0x065F},   {0x0670, 0x0670},   {0x06D6, 0x06DC},  {0x06DF, 0x06E4}, {0x06E7, 0x06E8},
     {0x06EA, 0x06ED}, {0x0900, 0x0902},   {0x093C, 0x093C},   {0x0941, 0x0948},  {0x094D, 0x094D}, {0x0E31, 0x0E31},
     {0x0E34, 0x0E3A}, {0x0E47, 0x0E4E},   {0x1AB0, 0x1AFF},   {0x1DC0, 0x1DFF},  {0x200B, 0x200F}, {0x202A, 0x202E},
     {0x2060, 0x2064}, {0x20D0, 0x20F0},   {0x302A, 0x302D},   {0x3099, 0x309A},  {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F},
     {0xFEFF, 0xFEFF}, {0x1F3FB, 0x1F3FF}, {0xE0000, 0xE007F}, {0xE0100, 0xE01EF}}};

constexpr std::array<TRange, 24> OfDoubleWidth = {
    {{0x1100, 0x115F},   {0x231A, 0x231B},   {0x2614, 0x2615},   {0x26A1, 0x26A1},   {0x2705, 0x2705},
     {0x274C, 0x274C},   {0x2E80, 0x303E},   {0x3041, 0x33FF},   {0x3400, 0x4DBF},   {0x4E00, 0x9FFF},
     {0xA000, 0xA4CF},   {0xA960, 0xA97F},   {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},   {0xFE30, 0xFE6F},
     {0xFF00, 0xFF60},   {0xFFE0, 0xFFE6},   {0x16FE0, 0x1B2FF}, {0x1F1E6, 0x1F202}, {0x1F210, 0x1F265},
     {0x1F300, 0x1F64F}, {0x1F680, 0x1F6FF}, {0x1F900, 0x1FAFF}, {0x20000, 0x3FFFD}}};

template <std::size_t Count> bool IsIn(const std::array<TRange, Count>& Ranges, char32_t Code)
{
    const auto Range = std::lower_bound(Ranges.begin(), Ranges.end(), Code,
                                        [](const TRange& Item, char32_t Value) { return Item.Last < Value; });
    return Range != Ranges.end() && Code >= Range->First;
}

std::size_t ColumnsOf(std::string_view Character)
{
    const char32_t Code = Texts::CodePoint(Character);
    return Code < WithoutWidth.front().First || !IsIn(WithoutWidth, Code) ? (IsIn(OfDoubleWidth, Code) ? 2 : 1) : 0;
}

/// Calls Use with the columns of each character and the place behind it, until it gives false. A malformed byte takes
/// one column.
template <typename TUse> void ForEachCharacter(std::string_view Text, TUse Use)
{
    for (std::size_t Start = 0; Start < Text.size();)
    {
        const std::size_t Length = Texts::CharacterLength(Text.substr(Start));
        const std::size_t Columns = Length == 0 ? 1 : ColumnsOf(Text.substr(Start, Length));
        Start += std::max<std::size_t>(Length, 1);
        if (!Use(Columns, Start))
            return;
    }
}
} // namespace

std::size_t Texts::Width(std::string_view Text)
{
    std::size_t Result = 0;
    ForEachCharacter(Text, [&](std::size_t Columns, std::size_t) {
        Result += Columns;
        return true;
    });
    return Result;
}

std::string_view Texts::FirstColumns(std::string_view Text, std::size_t Columns)
{
    std::size_t End = 0;
    ForEachCharacter(Text, [&](std::size_t Wide, std::size_t Behind) {
        if (Wide > Columns)
            return false;
        Columns -= Wide;
        End = Behind;
        return true;
    });
    return Text.substr(0, End);
}
