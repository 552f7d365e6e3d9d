#include "apps/quexley/commands/ProjectSchema.h"

#include "apps/quexley/commands/PropertyTexts.h"
#include "host/QXExecuteAction.h"
#include "host/QXServices.h"
#include "runtime/projects/ProjectReader.h"
#include "runtime/properties/ValueCheck.h"

#include <algorithm>
#include <limits>

namespace
{
using TJson = nlohmann::ordered_json;

constexpr std::string_view VariableNamePattern = "^[A-Za-z_][A-Za-z0-9_.]*$";

/// An object with these properties and no others.
TJson ClosedObject(TJson Properties)
{
    return {{"type", "object"}, {"additionalProperties", false}, {"properties", std::move(Properties)}};
}

TJson ProjectTable()
{
    return ClosedObject(
        {{"name", {{"type", "string"}}},
         {"secrets", {{"type", "array"}, {"items", {{"type", "string"}, {"pattern", VariableNamePattern}}}}},
         {"follow_ide", {{"type", "boolean"}, {"default", false}}}});
}

TJson VariablesTable()
{
    return {{"type", "object"},
            {"propertyNames", {{"pattern", VariableNamePattern}}},
            {"additionalProperties", {{"type", "string"}}}};
}

/// Each class by a condition on `type`, and not as one of several choices: so a validator knows which class is meant,
/// and names the key that is wrong in it.
TJson ActionTables()
{
    TJson Types = TJson::array();
    TJson Classes = TJson::array();
    for (const TQXActionRegistration& Registration : QXActionServices().Actions())
    {
        const std::string& Class = Registration.ActionClass.ClassName;
        Types.push_back(Class);
        Classes.push_back({{"if", {{"properties", {{"type", {{"const", Class}}}}}, {"required", {"type"}}}},
                           {"then", {{"$ref", "#/$defs/" + Class}}}});
    }
    if (Types.empty())
        return {{"type", "array"}, {"items", false}};
    TJson Items = {{"type", "object"},
                   {"required", TJson::array({ActionKeys[0]})},
                   {"properties", {{"type", {{"enum", std::move(Types)}}}}},
                   {"allOf", std::move(Classes)}};
    return {{"type", "array"}, {"items", std::move(Items)}};
}

TJson HostKeys(const TQXActionRegistration& Registration)
{
    return {{"type", {{"const", Registration.ActionClass.ClassName}}},
            {"name", {{"type", "string"}, {"default", Registration.DisplayName}}},
            {"enabled", {{"type", "boolean"}, {"default", true}}},
            {"on_failure", {{"enum", OnFailureNames}, {"default", OnFailureNames[0]}}},
            {"group", {{"type", "string"}}},
            {"when", {{"type", "string"}, {"minLength", 1}}},
            {"timeout", {{"type", "integer"}, {"minimum", 0}, {"maximum", std::numeric_limits<int>::max()}}}};
}

/// What values the property can hold.
TJson PropertyType(const TQXProperty& Property)
{
    switch (Property.Type)
    {
    case TQXPropertyType::String:
        return {{"type", "string"}};
    case TQXPropertyType::Boolean:
        return {{"type", "boolean"}};
    case TQXPropertyType::Integer:
        return {{"type", "integer"},
                {"minimum", std::numeric_limits<int>::min()},
                {"maximum", std::numeric_limits<int>::max()}};
    case TQXPropertyType::Enumeration:
        return {{"enum", Property.Elements}};
    case TQXPropertyType::Set:
        return {{"type", "array"}, {"items", {{"enum", Property.Elements}}}};
    case TQXPropertyType::StringList:
        return {{"type", "array"}, {"items", {{"type", "string"}}}};
    }
    return {};
}

/// The default of a hidden property may depend on this machine, so the schema does not tell it.
TJson PropertySchema(const TQXProperty& Property, bool IsHidden)
{
    TJson Result = {{"description", PropertyHelp(Property)}};
    Result.update(PropertyType(Property));
    if (!IsHidden)
        Result["default"] = PropertyAsJson(Property.Read());
    if (Property.Kind != TQXTextKind::Text)
        Result["x-kind"] = TextKindName(Property.Kind);
    if (Property.Separator != '\0')
        Result["x-separator"] = std::string(1, Property.Separator);
    if (Property.IsRequired())
    {
        Result["x-required"] = true;
        const std::string Example(Property.Example);
        Result["examples"] = TJson::array({PropertyAsJson(ParsePropertyText(Property, Property.Name, Example))});
    }
    return Result;
}

TJson ScriptsTable(const TCustomQXAction& Action)
{
    TJson Properties = TJson::object();
    for (const auto& Script : Action.Scripts())
        Properties[Script->Name()] = {{"type", "string"}};
    return ClosedObject(std::move(Properties));
}

/// The scripts of all classes.
TJson ProjectScriptsTable()
{
    TJson Properties = TJson::object();
    for (const TQXActionRegistration& Registration : QXActionServices().Actions())
    {
        const std::unique_ptr<TCustomQXAction> Action = Registration.ActionClass.Create();
        for (const auto& Script : Action->Scripts())
            Properties[Script->Name()] = {{"type", "string"}};
    }
    return ClosedObject(std::move(Properties));
}

TJson ActionTable(const TQXActionRegistration& Registration)
{
    const std::unique_ptr<TCustomQXAction> Action = Registration.ActionClass.Create();
    TStringList Hidden;
    Action->GetHiddenProperties(Hidden);
    TJson Properties = HostKeys(Registration);
    if (dynamic_cast<const TQXExecuteAbstractAction*>(Action.get()))
        Properties["arguments"] = {{"type", "string"}};
    for (const TQXProperty& Property : Action->Properties())
        if (Property.IsPersisted())
        {
            const bool IsHidden = std::find(Hidden.begin(), Hidden.end(), Property.Name) != Hidden.end();
            Properties[std::string(Property.Name)] = PropertySchema(Property, IsHidden);
        }
    if (!Action->Scripts().empty())
        Properties["scripts"] = ScriptsTable(*Action);
    TJson Result = {{"title", Registration.DisplayName},
                    {"description", Registration.Category},
                    {"required", TJson::array({ActionKeys[0]})}};
    Result.update(ClosedObject(std::move(Properties)));
    return Result;
}
} // namespace

nlohmann::ordered_json ProjectSchema()
{
    TJson Result = {{"$schema", "https://json-schema.org/draft/2020-12/schema"}, {"title", "Quexley project"}};
    Result.update(ClosedObject({{"include", {{"type", "array"}, {"items", {{"type", "string"}}}}},
                                {"project", ProjectTable()},
                                {"variables", VariablesTable()},
                                {"scripts", ProjectScriptsTable()},
                                {"action", ActionTables()}}));
    TJson Definitions = TJson::object();
    for (const TQXActionRegistration& Registration : QXActionServices().Actions())
        Definitions[Registration.ActionClass.ClassName] = ActionTable(Registration);
    Result["$defs"] = std::move(Definitions);
    return Result;
}
