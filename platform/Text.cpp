#include "platform/Text.h"

#include "platform/CharacterCase.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <numeric>
#include <utility>
#include <vector>

namespace
{
constexpr char32_t Replacement = 0xFFFD;

/// What Windows-1252 has at 0x80 to 0x9F. Its five undefined bytes stand for the control characters there.
constexpr char16_t Windows1252[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

constexpr char LowerAscii(char Character)
{
    return Character >= 'A' && Character <= 'Z' ? static_cast<char>(Character + ('a' - 'A')) : Character;
}

constexpr char UpperAscii(char Character)
{
    return Character >= 'a' && Character <= 'z' ? static_cast<char>(Character - ('a' - 'A')) : Character;
}

/// How many ASCII bytes stand at the start.
std::size_t AsciiLength(std::string_view Bytes)
{
    std::size_t Index = 0;
    for (; Index + sizeof(std::uint64_t) <= Bytes.size(); Index += sizeof(std::uint64_t))
    {
        std::uint64_t Block = 0;
        std::memcpy(&Block, Bytes.data() + Index, sizeof Block);
        if ((Block & 0x8080808080808080U) != 0)
            break;
    }
    while (Index < Bytes.size() && static_cast<unsigned char>(Bytes[Index]) < 0x80)
        ++Index;
    return Index;
}

/// The bounds of the second byte behind each lead byte keep out overlong forms, surrogates and what is
/// beyond Unicode.
struct TLeadRange
{
    unsigned char First, Last;
    std::size_t Length;
    unsigned char SecondFirst, SecondLast;
};
constexpr TLeadRange LeadRanges[] = {
    {0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF}, {0xE1, 0xEC, 3, 0x80, 0xBF}, {0xED, 0xED, 3, 0x80, 0x9F},
    {0xEE, 0xEF, 3, 0x80, 0xBF}, {0xF0, 0xF0, 4, 0x90, 0xBF}, {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F},
};

/// The byte that stands for a character in Windows-1252.
std::optional<char> Windows1252Byte(char32_t Code)
{
    if (Code < 0x80 || (Code >= 0xA0 && Code <= 0xFF))
        return static_cast<char>(Code);
    const auto* Found = std::find(std::begin(Windows1252), std::end(Windows1252), Code);
    if (Found == std::end(Windows1252))
        return std::nullopt;
    return static_cast<char>(0x80 + (Found - std::begin(Windows1252)));
}
} // namespace

std::string_view Texts::Trim(std::string_view Text)
{
    const auto IsBlank = [](char Character) { return static_cast<unsigned char>(Character) <= ' '; };
    while (!Text.empty() && IsBlank(Text.front()))
        Text.remove_prefix(1);
    while (!Text.empty() && IsBlank(Text.back()))
        Text.remove_suffix(1);
    return Text;
}

std::string Texts::Lower(std::string_view Text)
{
    std::string Result(Text);
    std::transform(Result.begin(), Result.end(), Result.begin(), LowerAscii);
    return Result;
}

std::string Texts::Upper(std::string_view Text)
{
    std::string Result(Text);
    std::transform(Result.begin(), Result.end(), Result.begin(), UpperAscii);
    return Result;
}

std::string Texts::FoldCase(std::string_view Text)
{
    const std::size_t Ascii = AsciiLength(Text);
    std::string Result = Lower(Text.substr(0, Ascii));
    Text.remove_prefix(Ascii);
    while (!Text.empty())
    {
        const std::size_t Length = CharacterLength(Text);
        if (Length == 0)
            Result += Text.front();
        else
            AppendCodePoint(Result, LowerCharacter(CodePoint(Text.substr(0, Length))));
        Text.remove_prefix(std::max<std::size_t>(Length, 1));
    }
    return Result;
}

bool Texts::Same(std::string_view Left, std::string_view Right)
{
    return Left.size() == Right.size() && StartsWithSame(Left, Right);
}

bool Texts::StartsWithSame(std::string_view Text, std::string_view Prefix)
{
    return Text.size() >= Prefix.size() && std::equal(Prefix.begin(), Prefix.end(), Text.begin(),
                                                      [](char A, char B) { return LowerAscii(A) == LowerAscii(B); });
}

std::string Texts::Replace(std::string_view Text, std::string_view From, std::string_view To)
{
    std::string Result;
    Result.reserve(Text.size());
    std::size_t Start = 0;
    while (!From.empty())
    {
        const std::size_t Found = Text.find(From, Start);
        if (Found == std::string_view::npos)
            break;
        Result.append(Text, Start, Found - Start).append(To);
        Start = Found + From.size();
    }
    return Result.append(Text, Start);
}

bool Texts::IsAscii(std::string_view Text)
{
    return AsciiLength(Text) == Text.size();
}

std::size_t Texts::ValidLength(std::string_view Text)
{
    std::size_t Result = AsciiLength(Text);
    while (Result < Text.size())
    {
        const std::size_t Length = CharacterLength(Text.substr(Result));
        if (Length == 0)
            return Result;
        Result += Length;
        Result += AsciiLength(Text.substr(Result));
    }
    return Result;
}

bool Texts::IsValidUtf8(std::string_view Text)
{
    return ValidLength(Text) == Text.size();
}

std::size_t Texts::CharacterLength(std::string_view Text)
{
    const auto At = [&](std::size_t Index) { return static_cast<unsigned char>(Text[Index]); };
    if (At(0) < 0x80)
        return 1;
    const auto* Range = std::find_if(std::begin(LeadRanges), std::end(LeadRanges),
                                     [&](const TLeadRange& Item) { return At(0) >= Item.First && At(0) <= Item.Last; });
    if (Range == std::end(LeadRanges) || Text.size() < Range->Length || At(1) < Range->SecondFirst ||
        At(1) > Range->SecondLast)
        return 0;
    for (std::size_t Index = 2; Index < Range->Length; ++Index)
        if ((At(Index) & 0xC0) != 0x80)
            return 0;
    return Range->Length;
}

std::string_view Texts::FirstCharacters(std::string_view Text, std::size_t Count)
{
    for (std::size_t Index = 0; Index < Text.size(); ++Index)
        if (!IsTrailByte(Text[Index]) && Count-- == 0)
            return Text.substr(0, Index);
    return Text;
}

std::size_t Texts::CutLength(std::string_view Text, std::size_t Limit)
{
    constexpr std::size_t LongestTail = 3;
    for (std::size_t Length = Limit; Length > 0 && Limit - Length <= LongestTail; --Length)
        if (!IsTrailByte(Text[Length]))
            return static_cast<unsigned char>(Text[Length]) < 0x80 ? Limit : Length;
    return Limit;
}

char32_t Texts::CodePoint(std::string_view Sequence)
{
    constexpr unsigned char LeadMasks[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    char32_t Result = static_cast<unsigned char>(Sequence[0]) & LeadMasks[Sequence.size()];
    for (const char Byte : Sequence.substr(1))
        Result = (Result << 6) | (static_cast<unsigned char>(Byte) & 0x3FU);
    return Result;
}

void Texts::AppendCodePoint(std::string& Text, char32_t Code)
{
    const auto Add = [&Text](char32_t Byte) { Text += static_cast<char>(Byte); };
    const auto AddTrail = [&](unsigned Shift) { Add(0x80 | ((Code >> Shift) & 0x3F)); };
    if (Code < 0x80)
        return Add(Code);
    if (Code < 0x800)
    {
        Add(0xC0 | (Code >> 6));
        return AddTrail(0);
    }
    if (Code < 0x10000)
        Add(0xE0 | (Code >> 12));
    else
    {
        Add(0xF0 | (Code >> 18));
        AddTrail(12);
    }
    AddTrail(6);
    AddTrail(0);
}

std::string Texts::MakeValidUtf8(std::string_view Text)
{
    std::string Result;
    Result.reserve(Text.size());
    while (!Text.empty())
    {
        std::size_t Length = AsciiLength(Text);
        if (Length == 0)
            Length = CharacterLength(Text);
        Result.append(Text, 0, Length);
        if (Length == 0)
            AppendCodePoint(Result, Replacement);
        Text.remove_prefix(std::max<std::size_t>(Length, 1));
    }
    return Result;
}

std::string Texts::FromUtf16(std::string_view Bytes, bool BigEndian)
{
    const std::size_t Count = Bytes.size() / 2;
    const auto Unit = [&](std::size_t Index) -> char32_t {
        const auto First = static_cast<unsigned char>(Bytes[2 * Index]);
        const auto Second = static_cast<unsigned char>(Bytes[2 * Index + 1]);
        return BigEndian ? char32_t{First} << 8 | Second : char32_t{Second} << 8 | First;
    };
    const auto IsSurrogate = [&](std::size_t Index, char32_t Kind) {
        return Index < Count && (Unit(Index) & 0xFC00) == Kind;
    };
    std::string Result;
    Result.reserve(Count);
    for (std::size_t Index = 0; Index < Count; ++Index)
    {
        if (IsSurrogate(Index, 0xD800) && IsSurrogate(Index + 1, 0xDC00))
        {
            AppendCodePoint(Result, 0x10000 + ((Unit(Index) & 0x3FF) << 10) + (Unit(Index + 1) & 0x3FF));
            ++Index;
        }
        else
            AppendCodePoint(Result, (Unit(Index) & 0xF800) == 0xD800 ? Replacement : Unit(Index));
    }
    if (Bytes.size() % 2 != 0)
        AppendCodePoint(Result, Replacement);
    return Result;
}

std::string Texts::ToUtf16(std::string_view Text, bool BigEndian)
{
    const std::string Valid = MakeValidUtf8(Text);
    std::string Result;
    Result.reserve(2 * Valid.size());
    const auto Add = [&](char32_t Unit) {
        const char High = static_cast<char>(Unit >> 8);
        const char Low = static_cast<char>(Unit & 0xFF);
        Result.append({BigEndian ? High : Low, BigEndian ? Low : High});
    };
    for (std::string_view Rest = Valid; !Rest.empty(); Rest.remove_prefix(CharacterLength(Rest)))
    {
        const char32_t Code = CodePoint(Rest.substr(0, CharacterLength(Rest)));
        if (Code >= 0x10000)
            Add(0xD800 | ((Code - 0x10000) >> 10));
        Add(Code >= 0x10000 ? 0xDC00 | (Code & 0x3FF) : Code);
    }
    return Result;
}

std::string Texts::FromWindows1252(std::string_view Bytes)
{
    std::string Result;
    Result.reserve(Bytes.size());
    for (const char Item : Bytes)
    {
        const auto Byte = static_cast<unsigned char>(Item);
        AppendCodePoint(Result, Byte >= 0x80 && Byte < 0xA0 ? char32_t{Windows1252[Byte - 0x80]} : char32_t{Byte});
    }
    return Result;
}

std::optional<std::string> Texts::ToWindows1252(std::string_view Text)
{
    std::string Result;
    while (!Text.empty())
    {
        const std::size_t Length = CharacterLength(Text);
        const auto Byte = Length == 0 ? std::nullopt : Windows1252Byte(CodePoint(Text.substr(0, Length)));
        if (!Byte)
            return std::nullopt;
        Result += *Byte;
        Text.remove_prefix(Length);
    }
    return Result;
}

std::string_view Texts::ForeignEncoding(std::string_view Bytes)
{
    // The mark of UTF-32 begins with that of UTF-16.
    if (Bytes.starts_with(std::string_view("\xFF\xFE\0\0", 4)) ||
        Bytes.starts_with(std::string_view("\0\0\xFE\xFF", 4)))
        return "UTF-32";
    if (Bytes.starts_with("\xFF\xFE") || Bytes.starts_with("\xFE\xFF"))
        return "UTF-16";
    return Bytes.find('\0') == std::string_view::npos ? "" : "NUL characters";
}

std::string Texts::Decode(std::string_view Bytes)
{
    if (Bytes.starts_with("\xEF\xBB\xBF"))
        return MakeValidUtf8(Bytes.substr(3));
    if (Bytes.starts_with("\xFF\xFE"))
        return FromUtf16(Bytes.substr(2), false);
    if (Bytes.starts_with("\xFE\xFF"))
        return FromUtf16(Bytes.substr(2), true);
    return IsValidUtf8(Bytes) ? std::string(Bytes) : FromWindows1252(Bytes);
}

std::size_t Texts::EditDistance(std::string_view Left, std::string_view Right)
{
    std::vector<std::size_t> Row(Right.size() + 1);
    std::iota(Row.begin(), Row.end(), std::size_t{0});
    for (std::size_t LeftIndex = 0; LeftIndex < Left.size(); ++LeftIndex)
    {
        std::size_t Diagonal = std::exchange(Row[0], LeftIndex + 1);
        for (std::size_t Index = 0; Index < Right.size(); ++Index)
        {
            const std::size_t Changed = Diagonal + (Left[LeftIndex] == Right[Index] ? 0 : 1);
            Diagonal = Row[Index + 1];
            Row[Index + 1] = std::min({Changed, Row[Index] + 1, Diagonal + 1});
        }
    }
    return Row[Right.size()];
}
