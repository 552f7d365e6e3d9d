#include "runtime/VariableUse.h"

#include "platform/Text.h"
#include "runtime/NearestName.h"

#include <algorithm>
#include <fmt/format.h>
#include <functional>
#include <set>
#include <string>

namespace
{
/// A text of a project and where it stands.
struct TProjectText
{
    std::string_view Text;
    const TProjectAction* Action = nullptr; ///< null: the project's own
    std::string_view Table;                 ///< empty: the action's own
    std::string_view Key;
    bool MustBeKnown = false; ///< whether every variable in it is asked for when it is used
};
using TTextHandler = std::function<void(const TProjectText&)>;

void VisitProperty(const TProjectAction& Action, const TQXProperty& Property, const TTextHandler& Handle)
{
    const bool MustBeKnown = Property.Kind != TQXTextKind::Text && Action.Enabled;
    const TQXPropertyValue Value = Property.Read();
    if (const auto* Text = std::get_if<std::string>(&Value))
        Handle({*Text, &Action, {}, Property.Name, MustBeKnown});
    else if (const auto* Items = std::get_if<std::vector<std::string>>(&Value))
        for (const std::string& Item : *Items)
            Handle({Item, &Action, {}, Property.Name, MustBeKnown});
}

void VisitAction(const TProjectAction& Action, const TTextHandler& Handle)
{
    for (const TQXProperty& Property : Action.Object->Properties())
        if (Property.IsPersisted() &&
            (Property.Type == TQXPropertyType::String || Property.Type == TQXPropertyType::StringList))
            VisitProperty(Action, Property, Handle);
    for (const auto& Script : Action.Object->Scripts())
        Handle({Script->Text(), &Action, "scripts", Script->Name()});
    Handle({Action.When, &Action, {}, "when"});
    Handle({Action.Arguments, &Action, {}, "arguments", Action.Enabled});
}

void VisitTexts(const TProject& Project, const TTextHandler& Handle)
{
    for (const auto& [Name, Value] : Project.AllVariables())
        Handle({Value, nullptr, "variables", Name, true});
    for (const TVariables::TPairs* Scripts : {&Project.Included.Scripts, &Project.Scripts})
        for (const auto& [Name, Text] : *Scripts)
            Handle({Text, nullptr, "scripts", Name});
    for (const TProjectAction& Action : Project.Actions)
        VisitAction(Action, Handle);
}

/// By their names in lower case.
std::set<std::string> UsedNames(const TProject& Project)
{
    std::set<std::string> Names;
    for (const std::string& Secret : Project.AllSecrets())
        Names.insert(Texts::Lower(Secret));
    VisitTexts(Project, [&](const TProjectText& Text) {
        for (const std::string_view Name : VariablesIn(Text.Text))
            Names.insert(Texts::Lower(Name));
    });
    return Names;
}

[[noreturn]] void ThrowUnknown(const TProject& Project, const std::string& Name, const std::set<std::string>& Used)
{
    const TVariables::TPairs Variables = Project.AllVariables();
    std::vector<std::string_view> Names;
    for (const auto& Variable : Variables)
        Names.emplace_back(Variable.first);
    Names.insert(Names.end(), Used.begin(), Used.end());
    throw EUsageError(fmt::format("--set: neither the project nor the host knows a variable \"{}\"{}", Name,
                                  DidYouMean(Name, Names)));
}
} // namespace

void CheckSettings(const TProject& Project, const TVariables& Known, const TVariables::TPairs& Settings)
{
    std::set<std::string> Used;
    for (const auto& Setting : Settings)
    {
        const std::string& Name = Setting.first;
        if (Known.Find(Name).Found)
            continue;
        if (Used.empty())
            Used = UsedNames(Project);
        if (!Used.contains(Texts::Lower(Name)))
            ThrowUnknown(Project, Name, Used);
    }
}

std::vector<THostFinding> FindUndefined(const TProject& Project, const TVariables& Known)
{
    std::set<std::string> Told;
    std::vector<THostFinding> Findings;
    VisitTexts(Project, [&](const TProjectText& Text) {
        if (!Text.MustBeKnown)
            return;
        for (const std::string_view Name : VariablesIn(Text.Text))
            if (!Known.Find(Name).Found && Told.insert(Texts::Lower(Name)).second)
            {
                Findings.push_back(Project.PlaceOf(Text.Action, Text.Table, Text.Key));
                Findings.back().Message =
                    fmt::format("no one defines the variable \"{}\", which \"{}\" uses", Name, Text.Key);
            }
    });
    return Findings;
}
