#include "runtime/projects/TomlEditor.h"

#include "platform/Text.h"
#include "runtime/projects/TomlText.h"

#include <algorithm>
#include <fmt/format.h>

namespace
{
using TEntryMap = std::unordered_map<std::string_view, const TTomlEntry*>;

TEntryMap MapEntries(const TTomlNode& Table)
{
    TEntryMap Entries;
    for (const TTomlEntry& Entry : Table.Entries)
        Entries.emplace(Entry.Key, &Entry);
    return Entries;
}

const TTomlEntry* FindIn(const TEntryMap& Entries, const std::string& Key)
{
    const auto Found = Entries.find(Key);
    return Found == Entries.end() ? nullptr : Found->second;
}

bool IsTableOfStatements(const TTomlNode& Node)
{
    return Node.Kind == TTomlKind::Table && Node.Form != TTomlForm::Inline;
}

/// Whether an entry has lines of its own among those of its table.
bool IsStatement(const TTomlEntry& Entry)
{
    const TTomlNode& Value = Entry.Value;
    return !IsTableOfStatements(Value.Kind == TTomlKind::Array && !Value.Items.empty() ? Value.Items.front() : Value);
}

/// The first wished entry that stays.
const TTomlEntry* FirstKept(const TEntryMap& Entries, std::span<const TTomlWish> Wishes)
{
    for (const TTomlWish& Wish : Wishes)
        if (const TTomlEntry* Entry = FindIn(Entries, Wish.Key);
            Entry && Wish.Kind != TTomlWish::TKind::Remove && IsStatement(*Entry))
            return Entry;
    return nullptr;
}

/// The tables that stand under headers, and the last lines of everything that is not a comment.
struct TLayout
{
    std::vector<const TTomlNode*> Tables;
    std::vector<std::size_t> UsedLines;

    void Add(const TTomlNode& Node)
    {
        if (Node.Kind == TTomlKind::Array && !Node.Items.empty() && IsTableOfStatements(Node.Items.front()))
            for (const TTomlNode& Item : Node.Items)
                AddTable(Item);
        else if (IsTableOfStatements(Node))
            AddTable(Node);
        else
            UsedLines.push_back(Node.End.Line);
    }

private:
    void AddTable(const TTomlNode& Table)
    {
        if (Table.Form == TTomlForm::Header)
        {
            Tables.push_back(&Table);
            UsedLines.push_back(Table.Begin.Line);
        }
        for (const TTomlEntry& Entry : Table.Entries)
            Add(Entry.Value);
    }
};
} // namespace

bool TTomlEditor::Apply(const TTomlNode& Table, std::span<const TTomlWish> Wishes)
{
    const TEntries Entries = MapEntries(Table);
    if (Table.Form == TTomlForm::Inline)
    {
        ApplyInline(Table, Wishes, Entries);
        return true;
    }
    const TTomlEntry* First = FirstKept(Entries, Wishes);
    const TTomlEntry* Behind = nullptr;
    bool HasPlace = true;
    for (const TTomlWish& Wish : Wishes)
    {
        if (const TTomlEntry* Entry = FindIn(Entries, Wish.Key))
        {
            ApplyToEntry(*Entry, Wish);
            if (Wish.Kind != TTomlWish::TKind::Remove && IsStatement(*Entry))
                Behind = Entry;
        }
        else if (Wish.Kind == TTomlWish::TKind::Write)
        {
            HasPlace = First || Table.Form == TTomlForm::Header;
            if (HasPlace)
                InsertLine(Table, Behind, First, Wish);
        }
    }
    return HasPlace;
}

void TTomlEditor::ApplyToEntry(const TTomlEntry& Entry, const TTomlWish& Wish)
{
    if (Wish.Kind == TTomlWish::TKind::Remove)
        Remove(Entry);
    else if (Wish.Kind == TTomlWish::TKind::Write)
        Replace(FDocument.Offset(Entry.Value.Begin), FDocument.Offset(Entry.Value.End), Wish.Value);
}

/// An inline table has no lines, so one whose entries come or go is written anew from their bytes.
void TTomlEditor::ApplyInline(const TTomlNode& Table, std::span<const TTomlWish> Wishes, const TEntries& Entries)
{
    std::string Text;
    bool HasNewShape = false;
    for (const TTomlWish& Wish : Wishes)
    {
        const TTomlEntry* Entry = FindIn(Entries, Wish.Key);
        HasNewShape |= Entry ? Wish.Kind == TTomlWish::TKind::Remove : Wish.Kind == TTomlWish::TKind::Write;
        const std::string_view Separator = Text.empty() ? "" : ", ";
        if (Wish.Kind == TTomlWish::TKind::Write)
            Text += fmt::format("{}{}", Separator, TomlLine(Wish));
        else if (Wish.Kind == TTomlWish::TKind::Keep && Entry)
            Text += fmt::format("{}{}", Separator,
                                Bytes(FDocument.Offset(Entry->Position), FDocument.Offset(Entry->Value.End)));
    }
    if (HasNewShape)
        Replace(FDocument.Offset(Table.Begin), FDocument.Offset(Table.End),
                Text.empty() ? "{}" : fmt::format("{{ {} }}", Text));
    else
        for (const TTomlWish& Wish : Wishes)
            if (const TTomlEntry* Entry = FindIn(Entries, Wish.Key))
                ApplyToEntry(*Entry, Wish);
}

void TTomlEditor::InsertLine(const TTomlNode& Table, const TTomlEntry* Behind, const TTomlEntry* First,
                             const TTomlWish& Wish)
{
    if (Behind)
        InsertBehind(*Behind, LineFor(*Behind, Wish));
    else if (Table.Form == TTomlForm::Header)
    {
        const std::size_t End = FDocument.LineContentEnd(Table.Begin.Line);
        Replace(End, End, fmt::format("{}{}", FDocument.LineEnd(), First ? LineFor(*First, Wish) : TomlLine(Wish)));
    }
    else
    {
        const std::size_t Begin = FDocument.LineBegin(First->Position.Line);
        Replace(Begin, Begin, fmt::format("{}{}", LineFor(*First, Wish), FDocument.LineEnd()));
    }
}

void TTomlEditor::InsertBehind(const TTomlEntry& Entry, std::string_view Lines)
{
    const std::size_t End = FDocument.LineContentEnd(Entry.Value.End.Line);
    Replace(End, End, fmt::format("{}{}", FDocument.LineEnd(), Lines));
}

void TTomlEditor::Remove(const TTomlEntry& Entry)
{
    Replace(FDocument.LineBegin(Entry.Position.Line), FDocument.LineBegin(Entry.Value.End.Line + 1), {});
}

void TTomlEditor::Replace(std::size_t Begin, std::size_t End, std::string Text)
{
    FEdits.emplace(Begin, TEdit{End, std::move(Text)});
}

/// A new line is indented as its sibling is, and repeats the leading parts of a dotted key.
std::string TTomlEditor::LineFor(const TTomlEntry& Sibling, const TTomlWish& Wish) const
{
    return fmt::format("{}{}", Bytes(FDocument.LineBegin(Sibling.Position.Line), FDocument.Offset(Sibling.Position)),
                       TomlLine(Wish));
}

std::string_view TTomlEditor::Bytes(std::size_t Begin, std::size_t End) const
{
    return std::string_view(FDocument.Text()).substr(Begin, End - Begin);
}

std::string TTomlEditor::Slice(std::size_t Begin, std::size_t End) const
{
    std::string Result;
    std::size_t Offset = Begin;
    const auto Last = End == FDocument.Text().size() ? FEdits.end() : FEdits.lower_bound(End);
    for (auto Edit = FEdits.lower_bound(Begin); Edit != Last; ++Edit)
    {
        Result += Bytes(Offset, Edit->first);
        Result += Edit->second.Text;
        Offset = Edit->second.End;
    }
    Result += Bytes(Offset, End);
    return Result;
}

std::vector<TTomlSection> TTomlEditor::Sections() const
{
    TLayout Layout;
    for (const TTomlEntry& Entry : FDocument.Root().Entries)
        Layout.Add(Entry.Value);
    std::sort(Layout.UsedLines.begin(), Layout.UsedLines.end());
    std::sort(Layout.Tables.begin(), Layout.Tables.end(),
              [](const TTomlNode* Left, const TTomlNode* Right) { return Left->Begin < Right->Begin; });

    const auto IsComment = [&](std::size_t Line) {
        return Texts::Trim(Bytes(FDocument.LineBegin(Line), FDocument.LineContentEnd(Line))).starts_with('#');
    };
    std::vector<TTomlSection> Sections{{}};
    for (const TTomlNode* Table : Layout.Tables)
    {
        std::size_t Line = Table->Begin.Line;
        const auto Used = std::lower_bound(Layout.UsedLines.begin(), Layout.UsedLines.end(), Line);
        const std::size_t LastUsed = Used == Layout.UsedLines.begin() ? 0 : *std::prev(Used);
        while (Line > LastUsed + 1 && IsComment(Line - 1))
            --Line;
        Sections.back().End = FDocument.LineBegin(Line);
        Sections.push_back({Table, FDocument.LineBegin(Line), 0});
    }
    Sections.back().End = FDocument.Text().size();
    return Sections;
}

std::string TomlLine(const TTomlWish& Wish)
{
    return fmt::format("{} = {}", TomlText::Key(Wish.Key), Wish.Value);
}

std::string TomlSection(std::string_view Header, std::span<const TTomlWish> Wishes, std::string_view LineEnd)
{
    std::string Result = fmt::format("{}{}", Header, LineEnd);
    for (const TTomlWish& Wish : Wishes)
        if (Wish.Kind == TTomlWish::TKind::Write)
            Result += fmt::format("{}{}", TomlLine(Wish), LineEnd);
    return Result;
}
