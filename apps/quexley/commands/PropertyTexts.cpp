#include "apps/quexley/commands/PropertyTexts.h"

#include "platform/Text.h"
#include "runtime/HostErrors.h"
#include "runtime/NearestName.h"

#include <fmt/format.h>

#include <array>

namespace
{
/// In the order of TQXPropertyType.
constexpr std::array<std::string_view, 6> TypeNames = {"string",      "boolean", "integer",
                                                       "enumeration", "set",     "string list"};

constexpr std::array<std::string_view, 2> BooleanNames = {"false", "true"};

/// Text, if it is one of the Names.
const std::string& CheckElement(std::string_view Name, const std::string& Text, std::span<const std::string_view> Names)
{
    for (const std::string_view Element : Names)
        if (Element == Text)
            return Text;
    throw EUsageError(
        fmt::format("{} is one of {}, not \"{}\"{}", Name, fmt::join(Names, ", "), Text, DidYouMean(Text, Names)));
}

std::vector<std::string> ParseItems(const std::string& Text)
{
    TStringList List;
    List.SetCommaText(Text);
    return List.Items();
}
} // namespace

std::string_view PropertyTypeName(TQXPropertyType Type)
{
    return TypeNames[static_cast<std::size_t>(Type)];
}

std::string PropertyText(const TQXPropertyValue& Value)
{
    if (const auto* Text = std::get_if<std::string>(&Value))
        return *Text;
    if (const auto* Flag = std::get_if<bool>(&Value))
        return std::string(BooleanNames[*Flag ? 1 : 0]);
    if (const auto* Number = std::get_if<int>(&Value))
        return std::to_string(*Number);
    return TStringList(std::get<std::vector<std::string>>(Value)).CommaText();
}

TQXPropertyValue ParsePropertyText(const TQXProperty& Property, std::string_view Name, const std::string& Text)
{
    switch (Property.Type)
    {
    case TQXPropertyType::Boolean:
        return CheckElement(Name, Text, BooleanNames) == BooleanNames[1];
    case TQXPropertyType::Integer:
        return ParseIntegerText(Name, Text);
    case TQXPropertyType::Enumeration:
        return CheckElement(Name, Text, Property.Elements);
    case TQXPropertyType::Set: {
        std::vector<std::string> Items = ParseItems(Text);
        for (const std::string& Item : Items)
            CheckElement(Name, Item, Property.Elements);
        return Items;
    }
    case TQXPropertyType::StringList:
        return ParseItems(Text);
    case TQXPropertyType::String:
        break;
    }
    return Text;
}

int ParseIntegerText(std::string_view Name, std::string_view Text)
{
    if (const auto Number = Texts::ParseWhole<int>(Text))
        return *Number;
    throw EUsageError(fmt::format("{} is a whole number, not \"{}\"", Name, Text));
}
