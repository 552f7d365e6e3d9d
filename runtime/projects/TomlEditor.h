// Edits of a TOML text that leave the rest of it byte for byte.
#pragma once

#include "runtime/projects/TomlDocument.h"

#include <cstddef>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// What is to become of one key of a table.
struct TTomlWish
{
    enum class TKind { Keep, Write, Remove };

    TKind Kind = TKind::Keep;
    std::string Key;
    std::string Value; ///< to be written, as TOML
};

/// The text from one header to the next: the header's table, and the comment lines right above it.
struct TTomlSection
{
    const TTomlNode* Table = nullptr; ///< null: what stands before the first header
    std::size_t Begin = 0;
    std::size_t End = 0;
};

/// Collects edits of a document, which must outlive it, and gives parts of the edited text.
class TTomlEditor
{
public:
    explicit TTomlEditor(const TTomlDocument& Document) : FDocument(Document) {}

    /// Brings the entries of a table to what is wished; a new entry goes behind the one wished before it. False
    /// if nothing is left of the table beside which new entries could stand: they were not written and need a
    /// section of their own.
    [[nodiscard]] bool Apply(const TTomlNode& Table, std::span<const TTomlWish> Wishes);
    /// Puts lines, without the end of the last one, behind the line on which an entry ends.
    void InsertBehind(const TTomlEntry& Entry, std::string_view Lines);
    /// Removes the lines of an entry.
    void Remove(const TTomlEntry& Entry);

    /// The bytes from Begin to End of the old text, edited.
    [[nodiscard]] std::string Slice(std::size_t Begin, std::size_t End) const;
    /// The whole text, edited.
    [[nodiscard]] std::string Text() const { return Slice(0, FDocument.Text().size()); }

    /// The document's sections in order; the first one has no table.
    [[nodiscard]] std::vector<TTomlSection> Sections() const;

private:
    struct TEdit
    {
        std::size_t End = 0;
        std::string Text;
    };

    using TEntries = std::unordered_map<std::string_view, const TTomlEntry*>;

    void ApplyInline(const TTomlNode& Table, std::span<const TTomlWish> Wishes, const TEntries& Entries);
    void ApplyToEntry(const TTomlEntry& Entry, const TTomlWish& Wish);
    void InsertLine(const TTomlNode& Table, const TTomlEntry* Behind, const TTomlEntry* First, const TTomlWish& Wish);
    void Replace(std::size_t Begin, std::size_t End, std::string Text);
    [[nodiscard]] std::string LineFor(const TTomlEntry& Sibling, const TTomlWish& Wish) const;
    [[nodiscard]] std::string_view Bytes(std::size_t Begin, std::size_t End) const;

    const TTomlDocument& FDocument;
    std::multimap<std::size_t, TEdit> FEdits; ///< by first byte; of one byte in the order of their making
};

/// `key = value`
[[nodiscard]] std::string TomlLine(const TTomlWish& Wish);
/// A section under a header such as `[project]`: what is to be written, each line ended.
[[nodiscard]] std::string TomlSection(std::string_view Header, std::span<const TTomlWish> Wishes,
                                      std::string_view LineEnd);
