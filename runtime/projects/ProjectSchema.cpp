#include "runtime/projects/ProjectSchema.h"

#include "host/QXServices.h"
#include "runtime/Variables.h"
#include "runtime/projects/JsonText.h"
#include "runtime/projects/ProjectReader.h"

#include <algorithm>
#include <limits>

namespace
{
/// Describes the project file to a text, from the outside in.
class TSchemaWriter
{
public:
    std::string Write();

private:
    void WriteType(std::string_view Type) { FJson.Member("type", Type); }
    void WriteProject();
    void WriteVariables();
    void WriteActions();
    void WriteAction(const TQXActionRegistration& Registration);
    void WriteHostKeys(const TQXActionRegistration& Registration);
    void WriteProperty(const TQXProperty& Property, bool HasDefault);
    void WriteItems(std::span<const std::string_view> Elements);
    void WriteDefault(const TQXPropertyValue& Value);
    void WriteScripts(const TCustomQXAction& Action);
    /// A member of "properties": its name and what Inside writes about it.
    template <typename T> void Describe(std::string_view Name, T Inside)
    {
        FJson.Key(Name);
        FJson.Object(Inside);
    }
    /// An object with these properties and no others.
    template <typename T> void WriteClosedObject(T Inside)
    {
        WriteType("object");
        FJson.Key("additionalProperties");
        FJson.Boolean(false);
        Describe("properties", Inside);
    }

    TJsonText FJson;
};

std::string TSchemaWriter::Write()
{
    FJson.Object([&] {
        FJson.Member("$schema", "https://json-schema.org/draft/2020-12/schema");
        FJson.Member("title", "Quexley project");
        WriteClosedObject([&] {
            Describe("project", [&] { WriteProject(); });
            Describe("variables", [&] { WriteVariables(); });
            Describe("action", [&] { WriteActions(); });
        });
        Describe("$defs", [&] {
            for (const TQXActionRegistration& Registration : QXActionServices().Actions())
                Describe(Registration.ActionClass.ClassName, [&] { WriteAction(Registration); });
        });
    });
    return FJson.Text();
}

void TSchemaWriter::WriteProject()
{
    WriteClosedObject([&] {
        Describe("name", [&] { WriteType("string"); });
        Describe("secrets", [&] {
            WriteType("array");
            Describe("items", [&] {
                WriteType("string");
                FJson.Member("pattern", VariableNamePattern);
            });
        });
    });
}

void TSchemaWriter::WriteVariables()
{
    WriteType("object");
    Describe("propertyNames", [&] { FJson.Member("pattern", VariableNamePattern); });
    Describe("additionalProperties", [&] { WriteType("string"); });
}

void TSchemaWriter::WriteActions()
{
    const auto Actions = QXActionServices().Actions();
    WriteType("array");
    FJson.Key("items");
    if (Actions.empty())
        FJson.Boolean(false);
    else
        FJson.Object([&] {
            FJson.Key("oneOf");
            FJson.Array([&] {
                for (const TQXActionRegistration& Registration : Actions)
                    FJson.Object([&] { FJson.Member("$ref", "#/$defs/" + Registration.ActionClass.ClassName); });
            });
        });
}

/// The default of a hidden property may depend on this machine, so the schema does not tell it.
void TSchemaWriter::WriteAction(const TQXActionRegistration& Registration)
{
    const std::unique_ptr<TCustomQXAction> Action = Registration.ActionClass.Create();
    TStringList Hidden;
    Action->GetHiddenProperties(Hidden);
    FJson.Member("title", Registration.DisplayName);
    FJson.Member("description", Registration.Category);
    FJson.Key("required");
    FJson.Strings(std::span(ActionKeys).first(1));
    WriteClosedObject([&] {
        WriteHostKeys(Registration);
        for (const TQXProperty& Property : Action->Properties())
            if (Property.IsPersisted())
            {
                const bool IsHidden = std::find(Hidden.begin(), Hidden.end(), Property.Name) != Hidden.end();
                Describe(Property.Name, [&] { WriteProperty(Property, !IsHidden); });
            }
        if (!Action->Scripts().empty())
            Describe("scripts", [&] { WriteScripts(*Action); });
    });
}

void TSchemaWriter::WriteHostKeys(const TQXActionRegistration& Registration)
{
    Describe("type", [&] { FJson.Member("const", Registration.ActionClass.ClassName); });
    Describe("name", [&] {
        WriteType("string");
        FJson.Member("default", Registration.DisplayName);
    });
    Describe("enabled", [&] {
        WriteType("boolean");
        FJson.Key("default");
        FJson.Boolean(true);
    });
    Describe("on_failure", [&] {
        FJson.Key("enum");
        FJson.Strings(OnFailureNames);
        FJson.Member("default", OnFailureNames[0]);
    });
    Describe("timeout", [&] {
        WriteType("integer");
        FJson.Key("minimum");
        FJson.Integer(0);
        FJson.Key("maximum");
        FJson.Integer(std::numeric_limits<int>::max());
    });
}

void TSchemaWriter::WriteProperty(const TQXProperty& Property, bool HasDefault)
{
    switch (Property.Type)
    {
    case TQXPropertyType::String:
        WriteType("string");
        break;
    case TQXPropertyType::Boolean:
        WriteType("boolean");
        break;
    case TQXPropertyType::Integer:
        WriteType("integer");
        FJson.Key("minimum");
        FJson.Integer(std::numeric_limits<int>::min());
        FJson.Key("maximum");
        FJson.Integer(std::numeric_limits<int>::max());
        break;
    case TQXPropertyType::Enumeration:
        FJson.Key("enum");
        FJson.Strings(Property.Elements);
        break;
    case TQXPropertyType::Set:
    case TQXPropertyType::StringList:
        WriteType("array");
        WriteItems(Property.Elements);
        break;
    }
    if (HasDefault)
        WriteDefault(Property.Read());
}

void TSchemaWriter::WriteItems(std::span<const std::string_view> Elements)
{
    Describe("items", [&] {
        if (Elements.empty())
            return WriteType("string");
        FJson.Key("enum");
        FJson.Strings(Elements);
    });
}

void TSchemaWriter::WriteDefault(const TQXPropertyValue& Value)
{
    FJson.Key("default");
    if (const auto* Text = std::get_if<std::string>(&Value))
        FJson.String(*Text);
    else if (const auto* Boolean = std::get_if<bool>(&Value))
        FJson.Boolean(*Boolean);
    else if (const auto* Integer = std::get_if<int>(&Value))
        FJson.Integer(*Integer);
    else if (const auto* Items = std::get_if<std::vector<std::string>>(&Value))
        FJson.Strings(*Items);
}

void TSchemaWriter::WriteScripts(const TCustomQXAction& Action)
{
    WriteClosedObject([&] {
        for (const auto& Script : Action.Scripts())
            Describe(Script->Name(), [&] { WriteType("string"); });
    });
}
} // namespace

std::string ProjectSchemaJson()
{
    return TSchemaWriter().Write();
}
