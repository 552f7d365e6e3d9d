#include "runtime/HostErrors.h"
#include "runtime/Project.h"
#include "runtime/Runtime.h"
#include "tests/fuzz/FuzzTarget.h"
#include "tests/runtime/SampleActions.h"

#include <algorithm>
#include <optional>

using Fuzz::Require;

namespace
{
const std::string File = "/nowhere/quexley.toml";

std::optional<TProject> Parse(std::string_view Text)
try
{
    return TProject::Parse(File, Text);
}
catch (const EHostFileError& Error)
{
    Require(std::string_view(Error.what()).starts_with(File + ':'), "an error has a place");
    return std::nullopt;
}

bool Same(const TProjectAction& One, const TProjectAction& Other)
{
    const auto Values = [](const TProjectAction& Action) {
        std::vector<TQXPropertyValue> Result;
        for (const TQXProperty& Property : Action.Object->Properties())
            Result.push_back(Property.Read());
        return Result;
    };
    return One.Type == Other.Type && One.Name == Other.Name && One.Enabled == Other.Enabled &&
           One.OnFailure == Other.OnFailure && One.TimeoutSeconds == Other.TimeoutSeconds &&
           Values(One) == Values(Other);
}

void Edit(TProject& Project)
{
    Project.Variables.emplace_back("Fuzz.New", "'\"\\\n");
    std::rotate(Project.Actions.begin(), Project.Actions.begin() + (Project.Actions.empty() ? 0 : 1),
                Project.Actions.end());
    for (std::size_t Place = 0; Place < Project.Actions.size(); Place += 2)
    {
        Project.Actions[Place].Enabled = !Project.Actions[Place].Enabled;
        Project.Actions[Place].Object->FindProperty("Text")->Write("a\n'''\"");
    }
}

void Check(std::string_view Input)
{
    const TQXRuntime Runtime;
    RegisterSampleActions();
    std::optional<TProject> Project = Parse(Input);
    if (!Project)
        return;
    Require(Project->ToText() == Input, "without edits nothing changes");
    Edit(*Project);
    const std::optional<TProject> After = Parse(Project->ToText());
    Require(After && After->ToText() == Project->ToText(), "what is saved is loaded");
    Require(After->Name == Project->Name && After->Secrets == Project->Secrets &&
                After->Variables == Project->Variables &&
                std::equal(After->Actions.begin(), After->Actions.end(), Project->Actions.begin(),
                           Project->Actions.end(), Same),
            "what is loaded is what was saved");
}
const TFuzzTarget Target("project", Check);
} // namespace
