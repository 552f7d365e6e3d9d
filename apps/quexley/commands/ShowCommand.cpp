#include "apps/quexley/Answer.h"
#include "apps/quexley/commands/Commands.h"
#include "apps/quexley/commands/PropertyTexts.h"
#include "runtime/HostErrors.h"
#include "runtime/NearestName.h"
#include "runtime/Runtime.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace
{
using TJson = nlohmann::ordered_json;

/// A new object of a registered class, and what its class is called.
struct TShownObject
{
    std::unique_ptr<TQXPersistent> Object;
    TStringList Hidden;
    std::string Title;

    [[nodiscard]] bool IsHidden(std::string_view Name) const
    {
        return std::find(Hidden.begin(), Hidden.end(), Name) != Hidden.end();
    }
};

TShownObject MakeAction(const TQXActionRegistration& Registration)
{
    std::unique_ptr<TCustomQXAction> Action = Registration.ActionClass.Create();
    TShownObject Result;
    Action->GetHiddenProperties(Result.Hidden);
    Result.Title =
        fmt::format("{}: {} ({})", Registration.ActionClass.ClassName, Registration.DisplayName, Registration.Category);
    Result.Object = std::move(Action);
    return Result;
}

TShownObject MakeOptions(const TQXOptionsClass& Class)
{
    return {Class.Create(), {}, fmt::format("{}: {} ({})", Class.ClassName, Class.Name, Class.Category)};
}

TShownObject MakeObject(TQXRuntime& Runtime, const std::string& ClassName)
{
    if (const TQXActionRegistration* Action = Runtime.ActionServices().FindAction(ClassName))
        return MakeAction(*Action);
    std::vector<std::string_view> Names;
    for (const TQXOptionsRegistration& Options : Runtime.OptionsServices().Options())
    {
        if (Options.OptionsClass.ClassName == ClassName)
            return MakeOptions(Options.OptionsClass);
        Names.push_back(Options.OptionsClass.ClassName);
    }
    for (const TQXActionRegistration& Action : Runtime.ActionServices().Actions())
        Names.push_back(Action.ActionClass.ClassName);
    throw EUsageError(fmt::format("there is no class \"{}\"{}", ClassName, DidYouMean(ClassName, Names)));
}

TJson PropertyAsJson(const TQXProperty& Property, bool Hidden)
{
    TJson Result = {{"name", Property.Name}, {"type", PropertyTypeName(Property.Type)}};
    std::visit([&](const auto& Value) { Result["default"] = Value; }, Property.Read());
    if (!Property.Elements.empty())
        Result["values"] = Property.Elements;
    Result["hidden"] = Hidden;
    return Result;
}

std::string ShowAsJson(const TShownObject& Shown)
{
    TJson Result = TJson::array();
    for (const TQXProperty& Property : Shown.Object->Properties())
        if (Property.IsPersisted())
            Result.push_back(PropertyAsJson(Property, Shown.IsHidden(Property.Name)));
    return Result.dump(2) + "\n";
}

std::string ShowAsText(const TShownObject& Shown)
{
    std::vector<std::vector<std::string>> Rows;
    for (const TQXProperty& Property : Shown.Object->Properties())
        if (Property.IsPersisted())
            Rows.push_back({std::string(Property.Name), std::string(PropertyTypeName(Property.Type)),
                            "default \"" + PropertyText(Property.Read()) + "\"",
                            fmt::format("{}{}", Shown.IsHidden(Property.Name) ? "hidden " : "",
                                        fmt::join(Property.Elements, " | "))});
    return Shown.Title + "\n" + AlignColumns(Rows, "  ");
}
} // namespace

int ShowCommand(const TArguments& Arguments, TQXRuntime& Runtime)
{
    if (Arguments.Words.size() != 1)
        throw EUsageError("show wants the name of one class; \"quexley list\" names them");
    const TShownObject Shown = MakeObject(Runtime, Arguments.Words.front());
    return WriteAnswer(Arguments.Json ? ShowAsJson(Shown) : ShowAsText(Shown));
}
