#include "apps/quexley/commands/PropertyTexts.h"

#include "host/QXOverloads.h"

std::string_view PropertyTypeName(TQXPropertyType Type)
{
    switch (Type)
    {
    case TQXPropertyType::String:
        return "string";
    case TQXPropertyType::Boolean:
        return "boolean";
    case TQXPropertyType::Integer:
        return "integer";
    case TQXPropertyType::Enumeration:
        return "enumeration";
    case TQXPropertyType::Set:
        return "set";
    case TQXPropertyType::StringList:
        return "string list";
    }
    return {};
}

std::string_view TextKindName(TQXTextKind Kind)
{
    switch (Kind)
    {
    case TQXTextKind::Text:
        return "text";
    case TQXTextKind::Expression:
        return "expression";
    case TQXTextKind::File:
        return "file";
    case TQXTextKind::Folder:
        return "folder";
    case TQXTextKind::List:
        return "list";
    }
    return {};
}

std::string_view PropertyHelp(const TQXProperty& Property)
{
    return Property.HelpText.empty() ? Property.Meaning : Property.HelpText;
}

std::string PropertyText(const TQXPropertyValue& Value)
{
    return std::visit(
        TQXOverloads{[](const std::string& Text) { return Text; },
                     [](bool Flag) { return std::string(Flag ? "true" : "false"); },
                     [](int Number) { return std::to_string(Number); },
                     [](const std::vector<std::string>& Items) { return TStringList(Items).CommaText(); }},
        Value);
}

nlohmann::ordered_json PropertyAsJson(const TQXPropertyValue& Value)
{
    using TJson = nlohmann::ordered_json;
    return std::visit(TQXOverloads{[](const std::string& Text) { return TJson(Text); },
                                   [](bool Flag) { return TJson(Flag); }, [](int Number) { return TJson(Number); },
                                   [](const std::vector<std::string>& Items) { return TJson(Items); }},
                      Value);
}
