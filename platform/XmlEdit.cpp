#include "platform/XmlEdit.h"

#include <algorithm>
#include <vector>

namespace
{
constexpr std::string_view WhiteSpace = " \t\r\n";

/// What may hold anything but its own end.
constexpr struct
{
    std::string_view Begin, End;
} Sections[] = {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};

constexpr struct
{
    char Character;
    std::string_view Written;
} Escapes[] = {{'&', "&amp;"},   {'<', "&lt;"},  {'>', "&gt;"},   {'"', "&quot;"},
               {'\'', "&apos;"}, {'\t', "&#9;"}, {'\n', "&#10;"}, {'\r', "&#13;"}};

/// An attribute as it is written: views of its parts.
struct TWrittenAttribute
{
    std::string_view Space; ///< in front of the name
    std::string_view Name;
    std::string_view Equals; ///< with the white space at both sides
    std::string_view Quote;
    std::string_view Value;
};

/// Goes through a document from its beginning. Stays at the end where something is cut off.
class TReader
{
public:
    explicit TReader(std::string_view Text) : FText(Text) {}

    [[nodiscard]] std::size_t Place() const { return FPlace; }
    [[nodiscard]] bool AtEnd() const { return FPlace == FText.size(); }
    [[nodiscard]] bool At(std::string_view Mark) const { return FText.substr(FPlace).starts_with(Mark); }

    /// Goes to the start tag of an element; false if there is none of this number.
    [[nodiscard]] bool FindElement(std::size_t Number)
    {
        for (ReadUntilAny("<"); !AtEnd(); ReadUntilAny("<"))
        {
            if (SkipSection())
                continue;
            const bool IsElement = !At("</") && !At("<!");
            if (IsElement && Number-- == 0)
                return true;
            SkipMarkup();
        }
        return false;
    }

    [[nodiscard]] std::vector<TWrittenAttribute> ReadAttributes()
    {
        std::vector<TWrittenAttribute> Result;
        std::size_t End = FPlace;
        for (std::string_view Space = ReadSpace(); !AtEnd() && !At("/") && !At(">"); Space = ReadSpace())
        {
            Result.push_back(ReadAttribute(Space));
            End = FPlace;
        }
        FPlace = End;
        return Result;
    }

    std::string_view ReadUntilAny(std::string_view Characters)
    {
        return ReadTo(FText.find_first_of(Characters, FPlace));
    }

private:
    std::string_view ReadTo(std::size_t End)
    {
        const std::size_t Begin = FPlace;
        FPlace = std::min(End, FText.size());
        return FText.substr(Begin, FPlace - Begin);
    }
    std::string_view ReadSpace() { return ReadTo(FText.find_first_not_of(WhiteSpace, FPlace)); }
    std::string_view ReadCharacter() { return ReadTo(FPlace + 1); }

    void SkipBehind(std::string_view Mark)
    {
        ReadTo(FText.find(Mark, FPlace));
        ReadTo(FPlace + Mark.size());
    }

    bool SkipSection()
    {
        const auto* Found =
            std::find_if(std::begin(Sections), std::end(Sections), [this](const auto& Row) { return At(Row.Begin); });
        if (Found == std::end(Sections))
            return false;
        SkipBehind(Found->Begin);
        SkipBehind(Found->End);
        return true;
    }

    bool SkipQuoted()
    {
        if (!At("\"") && !At("'"))
            return false;
        SkipBehind(ReadCharacter());
        return true;
    }

    /// A tag, or the document type with the declarations in it.
    void SkipMarkup()
    {
        int Depth = 0;
        do
        {
            ReadUntilAny("<>\"'");
            if (SkipSection() || SkipQuoted())
                continue;
            Depth += At("<") ? 1 : -1;
            ReadCharacter();
        } while (Depth > 0 && !AtEnd());
    }

    TWrittenAttribute ReadAttribute(std::string_view Space)
    {
        TWrittenAttribute Result;
        Result.Space = Space;
        Result.Name = ReadUntilAny(" \t\r\n=");
        Result.Equals = ReadUntilAny("\"'");
        Result.Quote = ReadCharacter();
        Result.Value = ReadTo(FText.find(Result.Quote, FPlace));
        ReadCharacter();
        return Result;
    }

    std::string_view FText;
    std::size_t FPlace = 0;
};

void AppendEscaped(std::string& Text, std::string_view Value, std::string_view Quote)
{
    for (const char Character : Value)
    {
        const auto* Found = std::find_if(std::begin(Escapes), std::end(Escapes),
                                         [=](const auto& Row) { return Row.Character == Character; });
        const bool IsOtherQuote =
            (Character == '"' || Character == '\'') && Quote.find(Character) == std::string_view::npos;
        if (Found == std::end(Escapes) || IsOtherQuote)
            Text += Character;
        else
            Text.append(Found->Written);
    }
}

template <typename TItems> auto FindName(const TItems& Items, std::string_view Name)
{
    return std::find_if(Items.begin(), Items.end(), [&](const auto& Item) { return Item.Name == Name; });
}

void AddMissing(std::vector<TWrittenAttribute>& Written, std::span<const TXmlAttribute> Attributes)
{
    TWrittenAttribute Layout = Written.empty() ? TWrittenAttribute{" ", "", "=", "\"", ""} : Written.back();
    for (const TXmlAttribute& Attribute : Attributes)
        if (FindName(Written, Attribute.Name) == Written.end())
        {
            Layout.Name = Attribute.Name;
            Written.push_back(Layout);
        }
}
} // namespace

std::optional<std::string> SetXmlAttributes(std::string_view Document, std::size_t ElementNumber,
                                            std::span<const TXmlAttribute> Attributes)
{
    TReader Reader(Document);
    if (!Reader.FindElement(ElementNumber))
        return std::nullopt;
    Reader.ReadUntilAny(" \t\r\n/>");
    std::string Result(Document.substr(0, Reader.Place()));
    std::vector<TWrittenAttribute> Written = Reader.ReadAttributes();
    AddMissing(Written, Attributes);
    for (const TWrittenAttribute& Item : Written)
    {
        Result.append(Item.Space).append(Item.Name).append(Item.Equals).append(Item.Quote);
        if (const auto Change = FindName(Attributes, Item.Name); Change != Attributes.end())
            AppendEscaped(Result, Change->Value, Item.Quote);
        else
            Result.append(Item.Value);
        Result.append(Item.Quote);
    }
    return Result.append(Document.substr(Reader.Place()));
}
