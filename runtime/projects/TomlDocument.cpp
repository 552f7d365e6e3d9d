#include "runtime/projects/TomlDocument.h"

#include "platform/Text.h"
#include "runtime/HostErrors.h"
#include "runtime/projects/FileFindings.h"
#include "runtime/projects/TomlLibrary.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <optional>
#include <utility>

namespace
{
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
/// The parser limits the depth of values but not the parts of a key, of which each becomes a table.
constexpr std::size_t MaximumKeyParts = 64;

[[noreturn]] void Fail(const std::string& FileName, TTomlPosition Position, std::string_view Message)
{
    throw EHostFileError(MakeFinding(FileName, Position, Message));
}

/// Where the byte at Offset stands.
TTomlPosition PositionOf(std::string_view Text, std::size_t Offset)
{
    TTomlPosition Position;
    for (std::size_t Index = Text.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0; Index < Offset; ++Index)
    {
        if (Text[Index] == '\n')
            Position = {Position.Line + 1, 1};
        else if (!Texts::IsTrailByte(Text[Index]))
            ++Position.Column;
    }
    return Position;
}

/// Looks for a key with too many parts in a text of which it knows strings and comments only.
class TKeyScanner
{
public:
    explicit TKeyScanner(std::string_view Text) : FText(Text) {}

    /// The byte at which a key grows too long, none if all is well.
    std::optional<std::size_t> FindTooLong()
    {
        while (FOffset < FText.size())
        {
            const char Character = FText[FOffset];
            if (Character == '"' || Character == '\'')
                SkipString(Character);
            else if (Character == '#')
                FOffset = std::min(FText.find('\n', FOffset), FText.size());
            else if (Character == '.' && ++FParts > MaximumKeyParts)
                return FOffset;
            else
            {
                if (Separators.find(Character) != std::string_view::npos)
                    FParts = 0;
                ++FOffset;
            }
        }
        return {};
    }

private:
    static constexpr std::string_view Separators = "=,[]{}\n";

    void SkipString(char Quote)
    {
        const std::string Long(3, Quote);
        const bool IsLong = FText.substr(FOffset).starts_with(Long);
        const std::string_view End = IsLong ? std::string_view(Long) : std::string_view(Long).substr(0, 1);
        FOffset += End.size();
        while (FOffset < FText.size() && !FText.substr(FOffset).starts_with(End))
        {
            if (!IsLong && FText[FOffset] == '\n')
                return;
            FOffset += Quote == '"' && FText[FOffset] == '\\' ? 2 : 1;
        }
        FOffset += End.size();
        // A long string may end in quotes of its own before the three that end it.
        while (IsLong && FOffset < FText.size() && FText[FOffset] == Quote)
            ++FOffset;
    }

    std::string_view FText;
    std::size_t FOffset = 0;
    std::size_t FParts = 1;
};

TTomlPosition PlaceOf(const toml::source_position& Source)
{
    return {Source.line, Source.column};
}

TTomlKind KindOf(const toml::node& Node)
{
    switch (Node.type())
    {
    case toml::node_type::string:
        return TTomlKind::String;
    case toml::node_type::integer:
        return TTomlKind::Integer;
    case toml::node_type::boolean:
        return TTomlKind::Boolean;
    case toml::node_type::floating_point:
        return TTomlKind::Float;
    case toml::node_type::array:
        return TTomlKind::Array;
    case toml::node_type::table:
        return TTomlKind::Table;
    default:
        return TTomlKind::DateTime;
    }
}

TTomlNode Convert(toml::node& Node);

/// An implicit table begins where the table does whose header made it, a dotted one where its key does.
TTomlForm FormOf(const TTomlEntry& Table, bool IsInline)
{
    if (IsInline)
        return TTomlForm::Inline;
    if (Table.Value.Begin == Table.Position)
        return TTomlForm::Dotted;
    const auto SharesHeader = [&](const TTomlEntry& Entry) { return Entry.Value.Begin == Table.Value.Begin; };
    return std::any_of(Table.Value.Entries.begin(), Table.Value.Entries.end(), SharesHeader) ? TTomlForm::Implicit
                                                                                             : TTomlForm::Header;
}

/// The library keeps tables sorted by key; ours are in the order of the text.
std::vector<TTomlEntry> ConvertEntries(toml::table& Table)
{
    std::vector<TTomlEntry> Entries;
    Entries.reserve(Table.size());
    for (auto&& [Key, Value] : Table)
    {
        TTomlEntry& Entry =
            Entries.emplace_back(TTomlEntry{std::string(Key.str()), PlaceOf(Key.source().begin), Convert(Value)});
        if (const toml::table* Inner = Value.as_table())
            Entry.Value.Form = FormOf(Entry, Inner->is_inline());
    }
    std::sort(Entries.begin(), Entries.end(),
              [](const TTomlEntry& Left, const TTomlEntry& Right) { return Left.Position < Right.Position; });
    return Entries;
}

TTomlNode Convert(toml::node& Node)
{
    TTomlNode Result;
    Result.Kind = KindOf(Node);
    Result.Begin = PlaceOf(Node.source().begin);
    Result.End = PlaceOf(Node.source().end);
    if (toml::value<std::string>* String = Node.as_string())
        Result.String = std::move(String->get());
    else if (const toml::value<std::int64_t>* Integer = Node.as_integer())
        Result.Integer = Integer->get();
    else if (const toml::value<bool>* Boolean = Node.as_boolean())
        Result.Boolean = Boolean->get();
    else if (toml::array* Array = Node.as_array())
    {
        Result.Items.reserve(Array->size());
        for (toml::node& Item : *Array)
            Result.Items.push_back(Convert(Item));
    }
    else if (toml::table* Table = Node.as_table())
    {
        Result.Form = Table->is_inline() ? TTomlForm::Inline : TTomlForm::Header;
        Result.Entries = ConvertEntries(*Table);
    }
    return Result;
}

/// Refuses what the library would not survive, or would report without its place.
void CheckBeforeParsing(const std::string& FileName, std::string_view Text)
{
    if (!Texts::IsValidUtf8(Text))
        Fail(FileName, PositionOf(Text, Texts::ValidLength(Text)), "the file is not valid UTF-8");
    if (const auto TooLong = TKeyScanner(Text).FindTooLong())
        Fail(FileName, PositionOf(Text, *TooLong), fmt::format("a key has more than {} parts", MaximumKeyParts));
}

/// The library's own words, without the name of one of its macros.
std::string Reason(const toml::parse_error& Error)
{
    std::string Result = Texts::Replace(Error.description(), " (TOML_MAX_NESTED_VALUES)", "");
    if (Result.starts_with("Error"))
        Result[0] = 'e';
    if (Result.find("escape") != std::string::npos || Result.find("unicode scalar") != std::string::npos)
        Result += "; a text with \\ stands in single quotes";
    return Result;
}

std::vector<std::size_t> FindLineBegins(std::string_view Text)
{
    std::vector<std::size_t> Begins{Text.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0};
    for (std::size_t Offset = Text.find('\n'); Offset != std::string_view::npos; Offset = Text.find('\n', Offset + 1))
        Begins.push_back(Offset + 1);
    return Begins;
}
} // namespace

const TTomlEntry* TTomlNode::Find(std::string_view Key) const
{
    const auto Found =
        std::find_if(Entries.begin(), Entries.end(), [&](const TTomlEntry& Entry) { return Entry.Key == Key; });
    return Found == Entries.end() ? nullptr : &*Found;
}

TTomlDocument::TTomlDocument(const std::string& FileName, std::string Text)
    : FText(std::move(Text)), FLineBegins(FindLineBegins(FText))
{
    CheckBeforeParsing(FileName, FText);
    toml::parse_result Result = toml::parse(std::string_view(FText));
    if (!Result)
        Fail(FileName, PlaceOf(Result.error().source().begin), Reason(Result.error()));
    FRoot = Convert(Result.table());
}

std::string_view TTomlDocument::LineEnd() const
{
    const std::size_t First = FText.find('\n');
    return First != std::string::npos && First > 0 && FText[First - 1] == '\r' ? "\r\n" : "\n";
}

std::size_t TTomlDocument::Offset(TTomlPosition Position) const
{
    const std::size_t Begin = LineBegin(Position.Line);
    return Begin + Texts::FirstCharacters(std::string_view(FText).substr(Begin), Position.Column - 1).size();
}

std::size_t TTomlDocument::LineBegin(std::size_t Line) const
{
    return Line > FLineBegins.size() ? FText.size() : FLineBegins[Line - 1];
}

std::size_t TTomlDocument::LineContentEnd(std::size_t Line) const
{
    std::size_t End = LineBegin(Line + 1);
    if (End > LineBegin(Line) && FText[End - 1] == '\n')
        --End;
    if (End > LineBegin(Line) && FText[End - 1] == '\r')
        --End;
    return End;
}

std::string_view TomlKindName(TTomlKind Kind)
{
    constexpr std::array<std::string_view, 7> Names{
        "a string", "an integer", "a Boolean", "a floating-point number", "a date or time", "an array", "a table"};
    return Names[static_cast<std::size_t>(Kind)];
}
