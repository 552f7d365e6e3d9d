#include "apps/quexley/Answer.h"
#include "apps/quexley/commands/Commands.h"
#include "runtime/Runtime.h"

#include <nlohmann/json.hpp>

namespace
{
using TJson = nlohmann::ordered_json;

std::string ListAsJson(TQXRuntime& Runtime)
{
    TJson Actions = TJson::array();
    for (const TQXActionRegistration& Action : Runtime.ActionServices().Actions())
        Actions.push_back(
            {{"type", Action.ActionClass.ClassName}, {"name", Action.DisplayName}, {"category", Action.Category}});
    TJson Options = TJson::array();
    for (const TQXOptionsRegistration& Registration : Runtime.OptionsServices().Options())
    {
        const TQXOptionsClass& Class = Registration.OptionsClass;
        Options.push_back(
            {{"type", Class.ClassName}, {"name", Class.Name}, {"category", Class.Category}, {"key", Class.OptionKey}});
    }
    return TJson({{"actions", Actions}, {"options", Options}}).dump(2) + "\n";
}

std::string ListAsText(TQXRuntime& Runtime)
{
    std::vector<std::vector<std::string>> Actions;
    for (const TQXActionRegistration& Action : Runtime.ActionServices().Actions())
        Actions.push_back({Action.ActionClass.ClassName, Action.DisplayName, Action.Category});
    std::vector<std::vector<std::string>> Options;
    for (const TQXOptionsRegistration& Registration : Runtime.OptionsServices().Options())
    {
        const TQXOptionsClass& Class = Registration.OptionsClass;
        Options.push_back({Class.ClassName, Class.Name, Class.Category, Class.OptionKey});
    }
    return "Actions\n" + AlignColumns(Actions, "  ") + "\nOptions\n" + AlignColumns(Options, "  ");
}
} // namespace

int ListCommand(const TArguments& Arguments, TQXRuntime& Runtime)
{
    return WriteAnswer(Arguments.Json ? ListAsJson(Runtime) : ListAsText(Runtime));
}
