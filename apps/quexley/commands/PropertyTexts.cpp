#include "apps/quexley/commands/PropertyTexts.h"

#include "host/QXOverloads.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <vector>

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

std::string PropertyNotes(const TQXProperty& Property, bool IsHidden)
{
    std::vector<std::string> Words;
    if (Property.IsRequired())
        Words.emplace_back("required");
    if (IsHidden)
        Words.emplace_back("hidden");
    if (Property.Kind == TQXTextKind::List)
        Words.push_back(fmt::format("list parted by \"{}\"", Property.Separator));
    else if (Property.Kind != TQXTextKind::Text)
        Words.emplace_back(TextKindName(Property.Kind));
    if (!Property.Elements.empty())
        Words.push_back(fmt::format("{}", fmt::join(Property.Elements, " | ")));
    return fmt::format("{}", fmt::join(Words, ", "));
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

std::string ScriptParamTypeName(const TQXScriptParam& Param)
{
    switch (Param.Type())
    {
    case TQXParamType::None:
        return Param.TypeName().empty() ? "any" : Param.TypeName();
    case TQXParamType::String:
        return "string";
    case TQXParamType::Boolean:
        return "boolean";
    case TQXParamType::Integer:
        return "integer";
    }
    return {};
}
