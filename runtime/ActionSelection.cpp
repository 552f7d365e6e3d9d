#include "runtime/ActionSelection.h"

#include "platform/Text.h"
#include "runtime/HostErrors.h"
#include "runtime/NearestName.h"

#include <fmt/format.h>

namespace
{
/// The number that a text is, if an action has it: names may be numbers too, and numbers go first.
bool IsNumberOf(const TProjectAction& Action, std::string_view Text)
{
    return Texts::ParseWhole<int>(Text) == Action.Index;
}

using TMatch = bool (*)(const TProjectAction& Action, std::string_view Text);

/// Ways in which an action may be meant, the strictest first. The first that finds one counts.
constexpr TMatch Matches[] = {
    IsNumberOf,
    [](const TProjectAction& Action, std::string_view Text) { return Action.Name == Text; },
    [](const TProjectAction& Action, std::string_view Text) { return Texts::Same(Action.Name, Text); },
};

[[noreturn]] void ThrowUnknown(const TProject& Project, std::string_view Text)
{
    std::vector<std::string_view> Names;
    for (const TProjectAction& Action : Project.Actions)
        Names.push_back(Action.Name);
    throw EUsageError(fmt::format("the project has no action \"{}\"{}", Text, DidYouMean(Text, Names)));
}

/// The places of all actions of this number or name.
std::vector<std::size_t> PlacesOfAction(const TProject& Project, std::string_view Text)
{
    std::vector<std::size_t> Places;
    for (const TMatch Match : Matches)
    {
        for (std::size_t Place = 0; Place < Project.Actions.size(); ++Place)
            if (Match(Project.Actions[Place], Text))
                Places.push_back(Place);
        if (!Places.empty())
            return Places;
    }
    ThrowUnknown(Project, Text);
}
bool IsIn(const std::vector<std::string>& Groups, const TProjectAction& Action)
{
    return std::any_of(Groups.begin(), Groups.end(),
                       [&](const std::string& Group) { return Texts::Same(Group, Action.Group); });
}

/// Throws EUsageError for a group that no action is in.
void CheckGroups(const TProject& Project, const std::vector<std::string>& Groups)
{
    std::vector<std::string_view> Names;
    for (const TProjectAction& Action : Project.Actions)
        if (!Action.Group.empty())
            Names.push_back(Action.Group);
    for (const std::string& Group : Groups)
        if (std::none_of(Names.begin(), Names.end(), [&](std::string_view Name) { return Texts::Same(Group, Name); }))
            throw EUsageError(fmt::format("the project has no group \"{}\"{}", Group, DidYouMean(Group, Names)));
}
} // namespace

std::size_t PlaceOfAction(const TProject& Project, std::string_view NumberOrName)
{
    return PlacesOfAction(Project, NumberOrName).front();
}

std::vector<TProjectAction*> SelectActions(TProject& Project, const TRunOptions& Options, std::size_t Begin)
{
    std::vector<bool> Named(Project.Actions.size(), Options.Only.empty());
    for (const std::string& Only : Options.Only)
        for (const std::size_t Place : PlacesOfAction(Project, Only))
            Named[Place] = true;
    CheckGroups(Project, Options.Groups);
    CheckGroups(Project, Options.SkipGroups);
    const auto IsInGroups = [&](const TProjectAction& Action) {
        return (Options.Groups.empty() || IsIn(Options.Groups, Action)) && !IsIn(Options.SkipGroups, Action);
    };
    std::vector<TProjectAction*> Selected;
    for (std::size_t Place = Begin; Place < Project.Actions.size(); ++Place)
        if (Named[Place] && Project.Actions[Place].Enabled && IsInGroups(Project.Actions[Place]))
            Selected.push_back(&Project.Actions[Place]);
    return Selected;
}
