#include "runtime/properties/ValueCheck.h"

#include "platform/Text.h"
#include "runtime/HostErrors.h"
#include "runtime/NearestName.h"
#include "runtime/actions/RunContext.h"
#include "runtime/projects/FileFindings.h"

#include <algorithm>
#include <fmt/format.h>

namespace
{
TGivenValue GivenItems(const std::string& Text)
{
    TStringList List;
    List.SetCommaText(Text);
    TGivenValue::TItems Items;
    for (const std::string& Item : List.Items())
        Items.push_back({fmt::format("\"{}\"", Item), Item});
    return {"an array", std::move(Items)};
}

/// The text itself, if it is no whole number.
TGivenValue GivenInteger(const std::string& Text)
{
    TGivenValue Given{fmt::format("\"{}\"", Text)};
    if (const auto Number = Texts::ParseWhole<std::int64_t>(Text))
        Given.Value = *Number;
    return Given;
}
} // namespace

std::optional<std::string> TValueCheck::Text(TGivenValue Given)
{
    auto* Text = Held<std::string>(Given, "a string");
    return Text ? std::optional(std::move(*Text)) : std::nullopt;
}

std::optional<bool> TValueCheck::Boolean(const TGivenValue& Given)
{
    if (const bool* Flag = std::get_if<bool>(&Given.Value))
        return *Flag;
    AddWrongKind(Given, "a Boolean");
    return {};
}

std::optional<int> TValueCheck::Integer(const TGivenValue& Given, int Minimum)
{
    constexpr int Maximum = std::numeric_limits<int>::max();
    const auto* Number = std::get_if<std::int64_t>(&Given.Value);
    if (!Number)
        AddWrongKind(Given, "an integer");
    else if (*Number >= Minimum && *Number <= Maximum)
        return static_cast<int>(*Number);
    else
        FErrors.push_back(
            {.Text = fmt::format("{} is out of range for \"{}\" ({} to {})", *Number, FName, Minimum, Maximum),
             .IsOutOfRange = true});
    return {};
}

std::optional<std::string> TValueCheck::Element(TGivenValue Given, std::span<const std::string_view> Names)
{
    auto* Text = Held<std::string>(Given, "the name of a value as a string");
    return Text && CheckElement(*Text, Names, {}) ? std::optional(std::move(*Text)) : std::nullopt;
}

std::optional<std::vector<std::string>> TValueCheck::Texts(TGivenValue Given)
{
    return Items(Given, "an array of strings");
}

std::optional<std::vector<std::string>> TValueCheck::Elements(TGivenValue Given,
                                                              std::span<const std::string_view> Names)
{
    auto Result = Items(Given, "an array of names");
    if (!Result)
        return {};
    bool IsValid = true;
    for (std::size_t Index = 0; Index < Result->size(); ++Index)
        IsValid &= CheckElement((*Result)[Index], Names, Index);
    return IsValid ? Result : std::nullopt;
}

std::optional<TQXPropertyValue> TValueCheck::Property(const TQXProperty& Property, TGivenValue Given)
{
    switch (Property.Type)
    {
    case TQXPropertyType::String:
        return Text(std::move(Given));
    case TQXPropertyType::Boolean:
        return Boolean(Given);
    case TQXPropertyType::Integer:
        return Integer(Given);
    case TQXPropertyType::Enumeration:
        return Element(std::move(Given), Property.Elements);
    case TQXPropertyType::Set:
        return Elements(std::move(Given), Property.Elements);
    case TQXPropertyType::StringList:
        return Texts(std::move(Given));
    }
    return {};
}

template <typename T> T* TValueCheck::Held(TGivenValue& Given, std::string_view Expected)
{
    T* Result = std::get_if<T>(&Given.Value);
    if (!Result)
        AddWrongKind(Given, Expected);
    return Result;
}

std::optional<std::vector<std::string>> TValueCheck::Items(TGivenValue& Given, std::string_view Expected)
{
    auto* Held = this->Held<TGivenValue::TItems>(Given, Expected);
    if (!Held)
        return {};
    std::vector<std::string> Result;
    for (std::size_t Index = 0; Index < Held->size(); ++Index)
        if (auto* Text = std::get_if<std::string>(&(*Held)[Index].Value))
            Result.push_back(std::move(*Text));
        else
            AddWrongKind((*Held)[Index], Expected, Index);
    return FErrors.empty() ? std::optional(std::move(Result)) : std::nullopt;
}

bool TValueCheck::CheckElement(const std::string& Text, std::span<const std::string_view> Names,
                               std::optional<std::size_t> Item)
{
    if (std::find(Names.begin(), Names.end(), Text) != Names.end())
        return true;
    std::string Hint = DidYouMean(Text, Names);
    if (Hint.empty())
        Hint = fmt::format("; its values are {}", QuotedNames(Names));
    FErrors.push_back({fmt::format("\"{}\" has no value \"{}\"{}", FName, TRunContext::Shorten(Text), Hint), Item});
    return false;
}

void TValueCheck::AddWrongKind(const TGivenValue& Given, std::string_view Expected, std::optional<std::size_t> Item)
{
    FErrors.push_back(
        {fmt::format("\"{}\" expects {}, not {}", FName, Expected, TRunContext::Shorten(Given.Kind)), Item});
}

TGivenValue GivenText(TQXPropertyType Type, const std::string& Text)
{
    switch (Type)
    {
    case TQXPropertyType::String:
    case TQXPropertyType::Enumeration:
        break;
    case TQXPropertyType::Boolean:
        if (Text == "true" || Text == "false")
            return {"a Boolean", Text == "true"};
        break;
    case TQXPropertyType::Integer:
        return GivenInteger(Text);
    case TQXPropertyType::Set:
    case TQXPropertyType::StringList:
        return GivenItems(Text);
    }
    return {fmt::format("\"{}\"", Text), Text};
}

TQXPropertyValue ParsePropertyText(const TQXProperty& Property, std::string_view Name, const std::string& Text)
{
    TValueCheck Check(Name);
    if (auto Value = Check.Property(Property, GivenText(Property.Type, Text)))
        return *std::move(Value);
    throw EUsageError(Check.Errors().front().Text);
}
