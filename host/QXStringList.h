#pragma once

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A list of texts with the forms in which properties keep lists: lines, comma text, name=value.
class TStringList
{
public:
    TStringList() = default;
    TStringList(std::initializer_list<std::string> Items) : FItems(Items) {}
    explicit TStringList(std::vector<std::string> Items) : FItems(std::move(Items)) {}

    [[nodiscard]] std::size_t Count() const { return FItems.size(); }
    [[nodiscard]] bool IsEmpty() const { return FItems.empty(); }
    [[nodiscard]] const std::string& operator[](std::size_t Index) const { return FItems[Index]; }
    [[nodiscard]] std::string& operator[](std::size_t Index) { return FItems[Index]; }
    [[nodiscard]] auto begin() const { return FItems.begin(); }
    [[nodiscard]] auto end() const { return FItems.end(); }
    [[nodiscard]] const std::vector<std::string>& Items() const { return FItems; }
    bool operator==(const TStringList&) const = default;

    void Add(std::string Item) { FItems.push_back(std::move(Item)); }
    void Delete(std::size_t Index) { FItems.erase(FItems.begin() + static_cast<std::ptrdiff_t>(Index)); }
    void Clear() { FItems.clear(); }

    /// The items as lines, each ended by CR LF.
    [[nodiscard]] std::string Text() const;
    /// Replaces the items by the lines of Text. LF, CR or CR LF end a line; a last line without an end counts.
    void SetText(std::string_view Text);

    /// The items joined by commas; one with a blank, comma, double quote or control character, and an
    /// empty one, stands in double quotes, its own quotes doubled.
    [[nodiscard]] std::string CommaText() const;
    /// Replaces the items by those of a comma text: commas and blanks separate, double quotes keep
    /// an item together.
    void SetCommaText(std::string_view Text);

    /// The same two forms with another separator in place of the comma. Strict leaves blanks outside
    /// quotes to the items.
    [[nodiscard]] std::string DelimitedText(char Delimiter) const;
    void SetDelimitedText(std::string_view Text, char Delimiter, bool Strict = false);

    /// The part of an item before its first "=", empty for an item without one.
    [[nodiscard]] std::string Name(std::size_t Index) const;
    /// The part of an item behind its first "=", empty for an item without one.
    [[nodiscard]] std::string ValueAt(std::size_t Index) const;
    /// The place of the first item Name=..., names compared ignoring case.
    [[nodiscard]] std::optional<std::size_t> IndexOfName(std::string_view Name) const;
    /// The value of that item, empty if there is none.
    [[nodiscard]] std::string Value(std::string_view Name) const;
    /// Sets the value of that item, or adds Name=Value behind the last one.
    void SetValue(std::string_view Name, std::string_view Value);

private:
    std::vector<std::string> FItems;
};
