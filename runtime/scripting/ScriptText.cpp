#include "runtime/scripting/ScriptText.h"

#include "platform/Text.h"

#include <cstddef>

namespace
{
unsigned Byte(std::string_view Text, std::size_t Index)
{
    return Index < Text.size() ? static_cast<unsigned char>(Text[Index]) : 0;
}

/// The ten bits of a surrogate that stands at Index in three bytes: ED, First to First + 15, and a third.
bool Surrogate(std::string_view Text, std::size_t Index, unsigned First, unsigned& Bits)
{
    const unsigned Second = Byte(Text, Index + 1);
    const unsigned Third = Byte(Text, Index + 2);
    if (Byte(Text, Index) != 0xED || Second < First || Second > First + 15 ||
        !Texts::IsTrailByte(static_cast<char>(Third)))
        return false;
    Bits = ((Second & 0x0F) << 6) | (Third & 0x3F);
    return true;
}
} // namespace

std::string ScriptText::FromHost(std::string_view Text)
{
    const std::string Valid = Texts::MakeValidUtf8(Text);
    std::string Result;
    Result.reserve(Valid.size());
    for (std::size_t Index = 0; Index < Valid.size(); ++Index)
    {
        if (Byte(Valid, Index) < 0xF0)
        {
            Result += Valid[Index];
            continue;
        }
        const char32_t Code = Texts::CodePoint(std::string_view(Valid).substr(Index, 4));
        Texts::AppendCodePoint(Result, 0xD800 + ((Code - 0x10000) >> 10));
        Texts::AppendCodePoint(Result, 0xDC00 + ((Code - 0x10000) & 0x3FF));
        Index += 3;
    }
    return Result;
}

std::string ScriptText::ToHost(std::string_view Text)
{
    std::string Result;
    Result.reserve(Text.size());
    for (std::size_t Index = 0; Index < Text.size(); ++Index)
    {
        unsigned High = 0;
        unsigned Low = 0;
        if (Surrogate(Text, Index, 0xA0, High) && Surrogate(Text, Index + 3, 0xB0, Low))
        {
            Texts::AppendCodePoint(Result, 0x10000 + (High << 10) + Low);
            Index += 5;
        }
        else
            Result += Text[Index];
    }
    return Texts::MakeValidUtf8(Result);
}
