#include "tests/runtime/ProjectDump.h"

#include "tests/runtime/PropertyTexts.h"

#include <algorithm>

std::string Dump(const TProject& Project)
{
    std::string Text = Project.Name + "\n";
    Text.append(Project.FollowsIDE ? "follows the IDE\n" : "");
    for (const std::string& Secret : Project.Secrets)
        Text.append("secret ").append(Secret).append("\n");
    auto Variables = Project.Variables;
    std::sort(Variables.begin(), Variables.end());
    for (const auto& [Name, Value] : Variables)
        Text.append(Name).append("=").append(Value).append("\n");
    for (const TProjectAction& Action : Project.Actions)
    {
        for (const std::string& Part : {Action.Type, Action.Name, std::string(Action.Enabled ? "on" : "off"),
                                        std::to_string(static_cast<int>(Action.OnFailure))})
            Text.append(Part).append("/");
        Text.append(std::to_string(Action.TimeoutSeconds)).append("\n");
        for (const TQXProperty& Property : Action.Object->Properties())
        {
            Text.append("  ").append(Property.Name).append("=").append(ValueText(Property.Read())).append("\n");
        }
        for (const auto& Script : Action.Object->Scripts())
            Text.append("  ").append(Script->Name()).append(":").append(Script->Text()).append("\n");
    }
    return Text;
}

TProjectAction NewAction(const std::string& Type, const std::string& Name)
{
    const TQXActionRegistration* Registration = QXActionServices().FindAction(Type);
    TProjectAction Action;
    Action.Type = Type;
    Action.Name = Name;
    Action.Object = Registration->ActionClass.Create();
    return Action;
}
