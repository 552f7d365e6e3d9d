#include "apps/quexley/Answer.h"
#include "apps/quexley/commands/Commands.h"
#include "apps/quexley/commands/PropertyTexts.h"
#include "apps/quexley/commands/ShownClass.h"
#include "runtime/HostErrors.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace
{
using TJson = nlohmann::ordered_json;

TJson PropertyRow(const TQXProperty& Property, bool IsHidden)
{
    TJson Result = {{"name", Property.Name},
                    {"type", PropertyTypeName(Property.Type)},
                    {"default", PropertyAsJson(Property.Read())}};
    if (!Property.Elements.empty())
        Result["values"] = Property.Elements;
    Result["hidden"] = IsHidden;
    Result["required"] = Property.IsRequired();
    Result["help"] = PropertyHelp(Property);
    Result["kind"] = TextKindName(Property.Kind);
    if (Property.Separator != '\0')
        Result["separator"] = std::string(1, Property.Separator);
    return Result;
}

std::string ShowAsJson(const TShownClass& Shown)
{
    TJson Result = TJson::array();
    for (const TQXProperty& Property : Shown.Object->Properties())
        if (Property.IsPersisted())
            Result.push_back(PropertyRow(Property, Shown.IsHidden(Property.Name)));
    return Result.dump(2) + "\n";
}

std::string AliasAndHelp(const TQXProperty& Property)
{
    return Property.AliasText.empty() ? std::string(PropertyHelp(Property))
                                      : fmt::format("{}: {}", Property.AliasText, PropertyHelp(Property));
}

/// A list of many lines would make the column as wide as all of them.
std::string DefaultText(const TQXPropertyValue& Value)
{
    constexpr std::size_t MostLines = 8;
    if (const auto* Lines = std::get_if<std::vector<std::string>>(&Value); Lines && Lines->size() > MostLines)
        return fmt::format("default {} lines", Lines->size());
    return "default \"" + PropertyText(Value) + "\"";
}

std::string ShowAsText(const TShownClass& Shown)
{
    std::vector<std::vector<std::string>> Rows;
    for (const TQXProperty& Property : Shown.Object->Properties())
        if (Property.IsPersisted())
            Rows.push_back({std::string(Property.Name), std::string(PropertyTypeName(Property.Type)),
                            DefaultText(Property.Read()), PropertyNotes(Property, Shown.IsHidden(Property.Name)),
                            AliasAndHelp(Property)});
    return Shown.Title + "\n" + AlignColumns(Rows, "  ");
}

const TCustomQXAction& CheckAction(const TShownClass& Shown, std::string_view Option)
{
    if (!Shown.Action)
        throw EUsageError(fmt::format("{} is for actions; {} is an options object", Option, Shown.ClassName));
    return *Shown.Action;
}

std::string ScriptsAsJson(const TCustomQXAction& Action)
{
    TJson Result = TJson::array();
    for (const auto& Script : Action.Scripts())
    {
        TJson Params = TJson::array();
        for (const TQXScriptParam& Param : Script->Params())
            Params.push_back(
                {{"name", Param.Name()}, {"type", ScriptParamTypeName(Param)}, {"output", Param.IsOutput()}});
        Result.push_back({{"name", Script->Name()}, {"parameters", std::move(Params)}});
    }
    return Result.dump(2) + "\n";
}

std::string ScriptsAsText(const TShownClass& Shown)
{
    if (Shown.Action->Scripts().empty())
        return Shown.ClassName + " has no scripts\n";
    std::string Result;
    for (const auto& Script : Shown.Action->Scripts())
    {
        std::vector<std::vector<std::string>> Rows;
        for (const TQXScriptParam& Param : Script->Params())
            Rows.push_back({Param.Name(), ScriptParamTypeName(Param), Param.IsOutput() ? "output" : ""});
        Result += Script->Name() + "\n" + AlignColumns(Rows, "  ");
    }
    return Result;
}

std::string ShowScripts(const TShownClass& Shown, bool Json)
{
    const TCustomQXAction& Action = CheckAction(Shown, "--scripts");
    return Json ? ScriptsAsJson(Action) : ScriptsAsText(Shown);
}
} // namespace

int ShowCommand(const TArguments& Arguments, TQXRuntime& Runtime)
{
    if (Arguments.Words.size() != 1)
        throw EUsageError("show wants the name of one class; \"quexley list\" names them");
    if (Arguments.Example && (Arguments.Scripts || Arguments.Json))
        throw EUsageError("--example stands alone");
    const TShownClass Shown = FindShownClass(Runtime, Arguments.Words.front());
    if (Arguments.Example)
    {
        static_cast<void>(CheckAction(Shown, "--example"));
        return WriteAnswer(ExampleBlock(Shown));
    }
    if (Arguments.Scripts)
        return WriteAnswer(ShowScripts(Shown, Arguments.Json));
    return WriteAnswer(Arguments.Json ? ShowAsJson(Shown) : ShowAsText(Shown));
}
