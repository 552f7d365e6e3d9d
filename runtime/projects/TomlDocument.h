// A TOML text as a tree in which every key and value knows where it stands.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// A place in a text: both count from 1, columns in code points.
struct TTomlPosition
{
    std::size_t Line = 1;
    std::size_t Column = 1;
    bool operator==(const TTomlPosition&) const = default;
    bool operator<(const TTomlPosition& Other) const
    {
        return Line < Other.Line || (Line == Other.Line && Column < Other.Column);
    }
};

enum class TTomlKind { String, Integer, Boolean, Float, DateTime, Array, Table };

/// How a table is written: `{...}`, under a header of its own, through the header of a table inside it, or
/// through dotted keys.
enum class TTomlForm { Inline, Header, Implicit, Dotted };

struct TTomlEntry;

/// A value. Which members count follows from Kind.
struct TTomlNode
{
    TTomlKind Kind = TTomlKind::Table;
    TTomlForm Form = TTomlForm::Implicit; ///< of a table
    TTomlPosition Begin;                  ///< of a table with a header: the header
    TTomlPosition End;                    ///< just behind the value, or the header
    std::string String;
    std::int64_t Integer = 0;
    bool Boolean = false;
    std::vector<TTomlNode> Items;    ///< of an array
    std::vector<TTomlEntry> Entries; ///< of a table, in the order of their keys in the text

    /// The entry of a table with this key, or null.
    [[nodiscard]] const TTomlEntry* Find(std::string_view Key) const;
};

/// A key of a table with its value.
struct TTomlEntry
{
    std::string Key;
    TTomlPosition Position; ///< of the last part of a dotted key
    TTomlNode Value;
};

/// A parsed TOML text, which stays as it was given.
class TTomlDocument
{
public:
    /// Throws EHostFileError with the place of the first error, under the name of FileName.
    TTomlDocument(const std::string& FileName, std::string Text);

    [[nodiscard]] const std::string& Text() const { return FText; }
    [[nodiscard]] const TTomlNode& Root() const { return FRoot; }
    /// What ends the lines of the text.
    [[nodiscard]] std::string_view LineEnd() const;

    /// The byte at which a place lies.
    [[nodiscard]] std::size_t Offset(TTomlPosition Position) const;
    /// The first byte of a line; the length of the text behind the last one.
    [[nodiscard]] std::size_t LineBegin(std::size_t Line) const;
    /// The byte behind the last one of a line, without what ends it.
    [[nodiscard]] std::size_t LineContentEnd(std::size_t Line) const;

private:
    std::string FText;
    std::vector<std::size_t> FLineBegins;
    TTomlNode FRoot;
};

/// "a string", "an integer" and so on, for messages.
[[nodiscard]] std::string_view TomlKindName(TTomlKind Kind);
