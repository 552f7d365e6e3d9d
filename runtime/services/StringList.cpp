#include "host/QXStringList.h"

#include "platform/Text.h"

namespace
{
/// Blanks part items just as all control characters do.
bool IsBlank(char Character)
{
    return static_cast<unsigned char>(Character) <= ' ';
}

void SkipBlanks(std::string_view Text, std::size_t& Position)
{
    while (Position < Text.size() && IsBlank(Text[Position]))
        ++Position;
}

bool NeedsQuotes(std::string_view Item, char Delimiter)
{
    for (const char Character : Item)
        if (IsBlank(Character) || Character == '"' || Character == Delimiter)
            return true;
    return Item.empty();
}

void AppendQuoted(std::string& Result, std::string_view Item)
{
    Result += '"';
    for (const char Character : Item)
        Result.append(Character == '"' ? 2 : 1, Character);
    Result += '"';
}

/// Reads an item that begins with a quote and moves behind its closing quote; without one the rest is the item.
std::string ReadQuoted(std::string_view Text, std::size_t& Position)
{
    std::string Item;
    for (++Position; Position < Text.size(); ++Position)
    {
        if (Text[Position] == '"' && (++Position >= Text.size() || Text[Position] != '"'))
            break;
        Item += Text[Position];
    }
    return Item;
}

std::string ReadPlain(std::string_view Text, std::size_t& Position, char Delimiter, bool Strict)
{
    const std::size_t Start = Position;
    while (Position < Text.size() && Text[Position] != Delimiter && (Strict || !IsBlank(Text[Position])))
        ++Position;
    return std::string(Text.substr(Start, Position - Start));
}
} // namespace

std::string TStringList::Text() const
{
    std::string Result;
    for (const std::string& Item : FItems)
        Result.append(Item).append("\r\n");
    return Result;
}

void TStringList::SetText(std::string_view Text)
{
    FItems.clear();
    while (!Text.empty())
    {
        const std::size_t End = Text.find_first_of("\r\n");
        FItems.emplace_back(Text.substr(0, End));
        if (End == std::string_view::npos)
            return;
        Text.remove_prefix(End + (Text.substr(End, 2) == "\r\n" ? 2 : 1));
    }
}

std::string TStringList::CommaText() const
{
    return DelimitedText(',');
}

void TStringList::SetCommaText(std::string_view Text)
{
    SetDelimitedText(Text, ',');
}

std::string TStringList::DelimitedText(char Delimiter) const
{
    std::string Result;
    for (std::size_t Index = 0; Index < FItems.size(); ++Index)
    {
        if (Index > 0)
            Result += Delimiter;
        if (NeedsQuotes(FItems[Index], Delimiter))
            AppendQuoted(Result, FItems[Index]);
        else
            Result += FItems[Index];
    }
    return Result;
}

void TStringList::SetDelimitedText(std::string_view Text, char Delimiter, bool Strict)
{
    FItems.clear();
    std::size_t Position = 0;
    if (!Strict)
        SkipBlanks(Text, Position);
    while (Position < Text.size())
    {
        FItems.push_back(Text[Position] == '"' ? ReadQuoted(Text, Position)
                                               : ReadPlain(Text, Position, Delimiter, Strict));
        if (!Strict)
            SkipBlanks(Text, Position);
        if (Position >= Text.size() || Text[Position] != Delimiter)
            continue;
        // A delimiter that ends the text announces one more, empty item.
        if (++Position; !Strict)
            SkipBlanks(Text, Position);
        if (Position >= Text.size())
            FItems.emplace_back();
    }
}

std::string TStringList::Name(std::size_t Index) const
{
    const std::size_t Sign = FItems[Index].find('=');
    return Sign == std::string::npos ? std::string() : FItems[Index].substr(0, Sign);
}

std::string TStringList::ValueAt(std::size_t Index) const
{
    const std::size_t Sign = FItems[Index].find('=');
    return Sign == std::string::npos ? std::string() : FItems[Index].substr(Sign + 1);
}

std::optional<std::size_t> TStringList::IndexOfName(std::string_view AName) const
{
    for (std::size_t Index = 0; Index < FItems.size(); ++Index)
        if (FItems[Index].find('=') != std::string::npos && Texts::Same(Name(Index), AName))
            return Index;
    return std::nullopt;
}

std::string TStringList::Value(std::string_view AName) const
{
    const auto Index = IndexOfName(AName);
    return Index ? ValueAt(*Index) : std::string();
}

void TStringList::SetValue(std::string_view AName, std::string_view Value)
{
    std::string Line = std::string(AName).append("=").append(Value);
    if (const auto Index = IndexOfName(AName))
        FItems[*Index] = std::move(Line);
    else
        FItems.push_back(std::move(Line));
}
