#include "runtime/projects/ValueReader.h"
#include "runtime/NearestName.h"

#include <algorithm>
#include <fmt/format.h>

std::optional<std::string> TValueReader::String(const TTomlEntry& Entry)
{
    if (!Has(TTomlKind::String, Entry, "a string"))
        return {};
    return Entry.Value.String;
}

std::optional<bool> TValueReader::Boolean(const TTomlEntry& Entry)
{
    if (!Has(TTomlKind::Boolean, Entry, "a Boolean"))
        return {};
    return Entry.Value.Boolean;
}

std::optional<int> TValueReader::Integer(const TTomlEntry& Entry, int Minimum)
{
    constexpr int Maximum = std::numeric_limits<int>::max();
    if (!Has(TTomlKind::Integer, Entry, "an integer"))
        return {};
    const std::int64_t Value = Entry.Value.Integer;
    if (Value >= Minimum && Value <= Maximum)
        return static_cast<int>(Value);
    FFindings.Add(Entry.Value.Begin,
                  fmt::format("{} is out of range for \"{}\" ({} to {})", Value, Entry.Key, Minimum, Maximum));
    return {};
}

std::optional<std::string> TValueReader::Element(const TTomlEntry& Entry, std::span<const std::string_view> Names)
{
    if (!Has(TTomlKind::String, Entry, "the name of a value as a string") || !IsElement(Entry.Value, Entry.Key, Names))
        return {};
    return Entry.Value.String;
}

std::optional<std::vector<std::string>> TValueReader::Strings(const TTomlEntry& Entry)
{
    return Items(Entry, "an array of strings");
}

std::optional<std::vector<std::string>> TValueReader::Elements(const TTomlEntry& Entry,
                                                               std::span<const std::string_view> Names)
{
    auto Result = Items(Entry, "an array of names");
    if (!Result)
        return {};
    bool IsValid = true;
    for (const TTomlNode& Item : Entry.Value.Items)
        IsValid &= IsElement(Item, Entry.Key, Names);
    return IsValid ? Result : std::nullopt;
}

const TTomlNode* TValueReader::Table(const TTomlEntry& Entry)
{
    return Has(TTomlKind::Table, Entry, "a table") ? &Entry.Value : nullptr;
}

std::optional<TQXPropertyValue> TValueReader::Property(const TTomlEntry& Entry, const TQXProperty& Property)
{
    switch (Property.Type)
    {
    case TQXPropertyType::String:
        return String(Entry);
    case TQXPropertyType::Boolean:
        return Boolean(Entry);
    case TQXPropertyType::Integer:
        return Integer(Entry);
    case TQXPropertyType::Enumeration:
        return Element(Entry, Property.Elements);
    case TQXPropertyType::Set:
        return Elements(Entry, Property.Elements);
    case TQXPropertyType::StringList:
        return Strings(Entry);
    }
    return {};
}

bool TValueReader::Has(TTomlKind Kind, const TTomlEntry& Entry, std::string_view Expected)
{
    if (Entry.Value.Kind != Kind)
        FFindings.AddWrongType(Entry.Value, Entry.Key, Expected);
    return Entry.Value.Kind == Kind;
}

bool TValueReader::IsElement(const TTomlNode& Value, std::string_view Key, std::span<const std::string_view> Names)
{
    if (std::find(Names.begin(), Names.end(), Value.String) != Names.end())
        return true;
    std::string Hint = DidYouMean(Value.String, Names);
    if (Hint.empty())
        Hint = fmt::format("; its values are {}", QuotedNames(Names));
    FFindings.Add(Value.Begin, fmt::format("\"{}\" has no value \"{}\"{}", Key, Value.String, Hint));
    return false;
}

std::optional<std::vector<std::string>> TValueReader::Items(const TTomlEntry& Entry, std::string_view Expected)
{
    if (!Has(TTomlKind::Array, Entry, Expected))
        return {};
    std::vector<std::string> Result;
    bool IsValid = true;
    for (const TTomlNode& Item : Entry.Value.Items)
        if (Item.Kind == TTomlKind::String)
            Result.push_back(Item.String);
        else
        {
            FFindings.AddWrongType(Item, Entry.Key, Expected);
            IsValid = false;
        }
    return IsValid ? std::optional(std::move(Result)) : std::nullopt;
}
