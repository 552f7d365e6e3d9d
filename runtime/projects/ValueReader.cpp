#include "runtime/projects/ValueReader.h"
#include "runtime/NearestName.h"

TGivenValue GivenToml(const TTomlNode& Value)
{
    TGivenValue Given{std::string(TomlKindName(Value.Kind))};
    switch (Value.Kind)
    {
    case TTomlKind::String:
        Given.Value = Value.String;
        break;
    case TTomlKind::Integer:
        Given.Value = Value.Integer;
        break;
    case TTomlKind::Boolean:
        Given.Value = Value.Boolean;
        break;
    case TTomlKind::Array: {
        TGivenValue::TItems Items;
        for (const TTomlNode& Item : Value.Items)
            Items.push_back(GivenToml(Item));
        Given.Value = std::move(Items);
        break;
    }
    case TTomlKind::Float:
    case TTomlKind::DateTime:
    case TTomlKind::Table:
        break;
    }
    return Given;
}

template <typename T> auto TValueReader::Checked(const TTomlEntry& Entry, T Ask)
{
    TValueCheck Check(Entry.Key);
    auto Result = Ask(Check, GivenToml(Entry.Value));
    for (const TValueError& Error : Check.Errors())
        FFindings.Add((Error.Item ? Entry.Value.Items[*Error.Item] : Entry.Value).Begin, Error.Text);
    return Result;
}

std::optional<std::string> TValueReader::String(const TTomlEntry& Entry)
{
    return Checked(Entry, [](TValueCheck& Check, TGivenValue Given) { return Check.Text(std::move(Given)); });
}

std::optional<bool> TValueReader::Boolean(const TTomlEntry& Entry)
{
    return Checked(Entry, [](TValueCheck& Check, const TGivenValue& Given) { return Check.Boolean(Given); });
}

std::optional<int> TValueReader::Integer(const TTomlEntry& Entry, int Minimum)
{
    return Checked(Entry, [&](TValueCheck& Check, const TGivenValue& Given) { return Check.Integer(Given, Minimum); });
}

std::optional<std::string> TValueReader::Element(const TTomlEntry& Entry, std::span<const std::string_view> Names)
{
    return Checked(Entry,
                   [&](TValueCheck& Check, TGivenValue Given) { return Check.Element(std::move(Given), Names); });
}

std::optional<std::vector<std::string>> TValueReader::Strings(const TTomlEntry& Entry)
{
    return Checked(Entry, [](TValueCheck& Check, TGivenValue Given) { return Check.Texts(std::move(Given)); });
}

std::optional<TQXPropertyValue> TValueReader::Property(const TTomlEntry& Entry, const TQXProperty& Property)
{
    return Checked(Entry,
                   [&](TValueCheck& Check, TGivenValue Given) { return Check.Property(Property, std::move(Given)); });
}

const TTomlNode* TValueReader::Table(const TTomlEntry& Entry)
{
    if (Entry.Value.Kind == TTomlKind::Table)
        return &Entry.Value;
    FFindings.AddWrongType(Entry.Value, Entry.Key, "a table");
    return nullptr;
}
