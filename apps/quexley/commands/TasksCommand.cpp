#include "apps/quexley/Answer.h"
#include "apps/quexley/commands/Commands.h"
#include "runtime/Project.h"

#include <nlohmann/json.hpp>

namespace
{
std::string TasksAsJson(const TProject& Project)
{
    auto Tasks = nlohmann::ordered_json::array();
    for (const TProjectAction& Action : Project.Actions)
        Tasks.push_back({{"index", Action.Index},
                         {"name", Action.Name},
                         {"type", Action.Type},
                         {"group", Action.Group},
                         {"enabled", Action.Enabled},
                         {"when", Action.When}});
    return Tasks.dump(2) + "\n";
}

std::string TasksAsText(const TProject& Project)
{
    std::vector<std::vector<std::string>> Rows = {{"", "Name", "Type", "Group", "Enabled", "When"}};
    for (const TProjectAction& Action : Project.Actions)
        Rows.push_back({std::to_string(Action.Index), Action.Name, Action.Type, Action.Group,
                        Action.Enabled ? "yes" : "no", Action.When});
    return Project.Actions.empty() ? "the project has no action\n" : AlignColumns(Rows);
}
} // namespace

int TasksCommand(const TArguments& Arguments, TQXRuntime&)
{
    const TProject Project = TProject::Load(Arguments.Project);
    return WriteAnswer(Arguments.Json ? TasksAsJson(Project) : TasksAsText(Project));
}
