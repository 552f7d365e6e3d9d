#include "runtime/projects/StringPlaces.h"

#include "platform/Text.h"

#include <algorithm>

namespace
{
constexpr std::string_view Blanks = " \t\r\n";

/// Steps through the source of a string, a character of its value at a time.
class TStringWalk
{
public:
    TStringWalk(std::string_view Source, TTomlPosition Begin) : FRest(Source), FPosition(Begin)
    {
        const char Quote = Source.empty() ? '\0' : Source.front();
        const bool IsLong = Source.size() > 5 && Source[1] == Quote && Source[2] == Quote;
        FHasEscapes = Quote == '"';
        Pass(IsLong ? 3 : 1);
        // The line end right behind the opening quotes is no part of the value.
        if (IsLong && (FRest.starts_with('\n') || FRest.starts_with("\r\n")))
            Pass(FRest.find('\n') + 1);
        SkipFoldedLines();
    }

    [[nodiscard]] TTomlPosition Position() const { return FPosition; }

    /// Passes a character and gives how many bytes of the value it is.
    std::size_t Step()
    {
        const std::size_t Bytes = FHasEscapes && FRest.starts_with('\\') ? PassEscape() : PassCharacter();
        SkipFoldedLines();
        return Bytes;
    }

private:
    std::size_t PassCharacter()
    {
        if (FRest.empty())
            return 1;
        const std::size_t Length = std::max<std::size_t>(Texts::CharacterLength(FRest), 1);
        Pass(Length);
        return Length;
    }

    std::size_t PassEscape()
    {
        const char Kind = FRest.size() > 1 ? FRest[1] : '\0';
        const std::size_t Digits = Kind == 'u' ? 4 : Kind == 'U' ? 8 : 0;
        const auto Code = Texts::ParseWhole<unsigned>(FRest.substr(std::min<std::size_t>(2, FRest.size()), Digits), 16);
        Pass(2 + Digits);
        if (Digits == 0 || !Code || *Code < 0x80)
            return 1;
        if (*Code < 0x800)
            return 2;
        return *Code < 0x10000 ? 3 : 4;
    }

    /// A backslash at the end of a line takes all blanks behind it away.
    void SkipFoldedLines()
    {
        while (FHasEscapes && FRest.starts_with('\\') && FRest.size() > 1 && Blanks.find(FRest[1]) != Blanks.npos)
            Pass(std::min(FRest.find_first_not_of(Blanks, 1), FRest.size()));
    }

    void Pass(std::size_t Bytes)
    {
        for (const char Byte : FRest.substr(0, Bytes))
            if (Byte == '\n')
                FPosition = {FPosition.Line + 1, 1};
            else if (!Texts::IsTrailByte(Byte))
                ++FPosition.Column;
        FRest.remove_prefix(std::min(Bytes, FRest.size()));
    }

    std::string_view FRest;
    TTomlPosition FPosition;
    bool FHasEscapes = false;
};
} // namespace

TTomlPosition PlaceInString(const TTomlDocument& Document, const TTomlNode& String, std::size_t Offset)
{
    const std::size_t Begin = Document.Offset(String.Begin);
    const std::size_t End = Document.Offset(String.End);
    TStringWalk Walk(std::string_view(Document.Text()).substr(Begin, End - Begin), String.Begin);
    for (std::size_t Byte = 0; Byte < std::min(Offset, String.String.size());)
        Byte += Walk.Step();
    return Walk.Position();
}

TTomlPosition PlaceOfLine(const TTomlDocument& Document, const TTomlNode& String, std::size_t Line)
{
    std::size_t Offset = 0;
    for (; Line > 1 && Offset < String.String.size(); --Line)
        Offset = std::min(String.String.find('\n', Offset), String.String.size() - 1) + 1;
    return PlaceInString(Document, String, Offset);
}
