#include "tests/runtime/PropertyTexts.h"

#include <algorithm>
#include <charconv>

namespace
{
bool IsElement(const TQXProperty& Property, const std::string& Name)
{
    return std::find(Property.Elements.begin(), Property.Elements.end(), Name) != Property.Elements.end();
}

bool SetInteger(const TQXProperty& Property, const std::string& Text)
{
    int Value = 0;
    const char* End = Text.data() + Text.size();
    const auto [Rest, Error] = std::from_chars(Text.data(), End, Value);
    Property.Write(Value);
    return Error == std::errc() && Rest == End;
}

bool SetElements(const TQXProperty& Property, const std::string& Text)
{
    TStringList Names;
    Names.SetDelimitedText(Text, ',', true);
    Property.Write(Names.Items());
    return std::all_of(Names.begin(), Names.end(), [&](const std::string& Name) { return IsElement(Property, Name); });
}

void AddLine(const TQXProperty& Property, const std::string& Text)
{
    auto Items = std::get<std::vector<std::string>>(Property.Read());
    Items.push_back(Text);
    Property.Write(Items);
}
} // namespace

bool SetProperty(const TQXPersistent& Object, const std::string& Name, const std::string& Value)
{
    const TQXProperty* Property = Object.FindProperty(Name);
    if (!Property || !Property->IsPersisted())
        return false;
    switch (Property->Type)
    {
    case TQXPropertyType::String:
        return Property->Write(Value), true;
    case TQXPropertyType::Boolean:
        return Property->Write(Value == "true"), Value == "true" || Value == "false";
    case TQXPropertyType::Integer:
        return SetInteger(*Property, Value);
    case TQXPropertyType::Enumeration:
        return Property->Write(Value), IsElement(*Property, Value);
    case TQXPropertyType::Set:
        return SetElements(*Property, Value);
    case TQXPropertyType::StringList:
        return AddLine(*Property, Value), true;
    }
    return false;
}

std::string ValueText(const TQXPropertyValue& Value)
{
    if (const auto* String = std::get_if<std::string>(&Value))
        return *String;
    if (const auto* Boolean = std::get_if<bool>(&Value))
        return *Boolean ? "true" : "false";
    if (const auto* Integer = std::get_if<int>(&Value))
        return std::to_string(*Integer);
    std::string Text;
    for (const std::string& Item : std::get<std::vector<std::string>>(Value))
        Text.append(Item).append("|");
    return Text;
}
