#include "runtime/projects/ProjectReader.h"

#include "host/QXExecuteAction.h"
#include "host/QXServices.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "runtime/NearestName.h"
#include "runtime/Variables.h"
#include "runtime/projects/Condition.h"
#include "runtime/projects/FileFindings.h"
#include "runtime/projects/StringPlaces.h"
#include "runtime/projects/ValueReader.h"

#include <algorithm>
#include <fmt/format.h>
#include <unordered_map>

namespace
{
constexpr std::array<std::string_view, 5> RootKeys{"include", "project", "variables", "scripts", "action"};

bool IsOneOf(std::string_view Name, std::span<const std::string_view> Names)
{
    return std::find(Names.begin(), Names.end(), Name) != Names.end();
}

/// Reads the tables of one document into a project.
class TReader
{
public:
    TReader(TProjectPart& Part, const TTomlDocument& Document, std::string FileName, TFileFindings& Findings)
        : FProject(Part.Content), FIncludes(Part.Includes), FDocument(Document), FFileName(std::move(FileName)),
          FFindings(Findings), FValues(Findings)
    {}

    void ReadRoot(const TTomlNode& Root);

private:
    void ReadTable(std::string_view Key, const TTomlNode& Table);
    void ReadIncludes(const TTomlEntry& Entry);
    void ReadProjectTable(const TTomlNode& Table);
    void ReadProjectScripts(const TTomlNode& Table);
    void ReadSecrets(const TTomlEntry& Entry);
    void ReadVariables(const TTomlNode& Table);
    void ReadVariable(const TTomlEntry& Entry);
    void ReadActions(const TTomlEntry& Entry);
    TProjectAction ReadAction(const TTomlNode& Table);
    const TQXActionRegistration* FindType(const TTomlNode& Table);
    void ReadHostKey(const TTomlEntry& Entry, TProjectAction& Action);
    [[nodiscard]] std::string ReadWhen(const TTomlEntry& Entry);
    [[nodiscard]] std::string ReadArguments(const TTomlEntry& Entry, const TProjectAction& Action);
    void ReadProperties(const TTomlNode& Table, const TProjectAction& Action);
    void ReadScripts(const TTomlNode& Table, const TProjectAction& Action);
    void AddUnknownKey(const TTomlEntry& Entry, const TProjectAction& Action);
    void AddUnknownScript(const TTomlEntry& Entry, const TProjectAction& Action);

    TProject& FProject;
    std::vector<TProjectInclude>& FIncludes;
    const TTomlDocument& FDocument;
    std::string FFileName; ///< as the user named it
    TFileFindings& FFindings;
    TValueReader FValues;
    std::unordered_map<std::string, const TTomlEntry*> FVariables; ///< by name in lower case
};

void TReader::ReadRoot(const TTomlNode& Root)
{
    for (const TTomlEntry& Entry : Root.Entries)
        if (Entry.Key == "action")
            ReadActions(Entry);
        else if (!IsOneOf(Entry.Key, RootKeys))
            FFindings.Add(Entry.Position,
                          fmt::format("a project has no \"{}\"{}", Entry.Key, DidYouMean(Entry.Key, RootKeys)));
        else if (Entry.Key == "include")
            ReadIncludes(Entry);
        else if (const TTomlNode* Table = FValues.Table(Entry))
            ReadTable(Entry.Key, *Table);
}

void TReader::ReadTable(std::string_view Key, const TTomlNode& Table)
{
    if (Key == "project")
        ReadProjectTable(Table);
    else if (Key == "variables")
        ReadVariables(Table);
    else
        ReadProjectScripts(Table);
}

void TReader::ReadIncludes(const TTomlEntry& Entry)
{
    const auto Names = FValues.Strings(Entry);
    for (std::size_t Index = 0; Names && Index < Names->size(); ++Index)
        FIncludes.push_back({(*Names)[Index], Entry.Value.Items[Index].Begin});
    FProject.Includes = Names.value_or(std::vector<std::string>());
}

/// Whatever an action of any class declares may be named, also where none of the project's does.
void TReader::ReadProjectScripts(const TTomlNode& Table)
{
    std::vector<std::string> Known;
    for (const TQXActionRegistration& Registration : QXActionServices().Actions())
    {
        const std::unique_ptr<TCustomQXAction> Action = Registration.ActionClass.Create();
        for (const auto& Script : Action->Scripts())
            Known.push_back(Script->Name());
    }
    const std::vector<std::string_view> Names(Known.begin(), Known.end());
    for (const TTomlEntry& Entry : Table.Entries)
        if (!IsOneOf(Entry.Key, Names))
            FFindings.Add(Entry.Position,
                          fmt::format("no action has a script \"{}\"{}", Entry.Key, DidYouMean(Entry.Key, Names)));
        else if (auto Text = FValues.String(Entry))
            FProject.Scripts.emplace_back(Entry.Key, std::move(*Text));
}

void TReader::ReadProjectTable(const TTomlNode& Table)
{
    for (const TTomlEntry& Entry : Table.Entries)
        if (Entry.Key == "name")
            FProject.Name = FValues.String(Entry).value_or(std::string());
        else if (Entry.Key == "secrets")
            ReadSecrets(Entry);
        else if (Entry.Key == "follow_ide")
            FProject.FollowsIDE = FValues.Boolean(Entry).value_or(false);
        else
            FFindings.Add(Entry.Position,
                          fmt::format("[project] has no key \"{}\"{}", Entry.Key, DidYouMean(Entry.Key, ProjectKeys)));
}

void TReader::ReadSecrets(const TTomlEntry& Entry)
{
    auto Names = FValues.Strings(Entry);
    if (!Names)
        return;
    for (const TTomlNode& Item : Entry.Value.Items)
        if (!IsVariableName(Item.String))
            FFindings.Add(Item.Begin, fmt::format("\"{}\" cannot name a variable: {}", Item.String, VariableNameRule));
    FProject.Secrets = std::move(*Names);
}

void TReader::ReadVariables(const TTomlNode& Table)
{
    for (const TTomlEntry& Entry : Table.Entries)
        ReadVariable(Entry);
}

void TReader::ReadVariable(const TTomlEntry& Entry)
{
    if (Entry.Value.Kind == TTomlKind::Table && IsVariableName(Entry.Key))
    {
        const std::string_view Inner =
            Entry.Value.Entries.empty() ? "Name" : std::string_view(Entry.Value.Entries.front().Key);
        FFindings.Add(Entry.Position,
                      fmt::format("variable \"{0}\" is a table; a name with a dot stands in quotes: \"{0}.{1}\"",
                                  Entry.Key, Inner));
        return;
    }
    if (!IsVariableName(Entry.Key))
        FFindings.Add(Entry.Position, fmt::format("\"{}\" cannot name a variable: {}", Entry.Key, VariableNameRule));
    const auto [Known, IsNew] = FVariables.emplace(Texts::Lower(Entry.Key), &Entry);
    if (!IsNew)
        FFindings.Add(Entry.Position, fmt::format("variable \"{}\" is \"{}\" of line {} again: names ignore case",
                                                  Entry.Key, Known->second->Key, Known->second->Position.Line));
    if (auto Value = FValues.String(Entry))
        FProject.Variables.emplace_back(Entry.Key, std::move(*Value));
}

void TReader::ReadActions(const TTomlEntry& Entry)
{
    if (Entry.Value.Kind == TTomlKind::Table)
        FFindings.Add(Entry.Value.Begin, "\"action\" is a single table; write [[action]] above each action");
    else if (Entry.Value.Kind != TTomlKind::Array)
        FFindings.AddWrongType(Entry.Value, Entry.Key, "[[action]] tables");
    FProject.Actions.reserve(Entry.Value.Items.size());
    for (const TTomlNode& Item : Entry.Value.Items)
        if (Item.Kind == TTomlKind::Table)
            FProject.Actions.push_back(ReadAction(Item));
        else
            FFindings.AddWrongType(Item, Entry.Key, "[[action]] tables");
}

TProjectAction TReader::ReadAction(const TTomlNode& Table)
{
    TProjectAction Action;
    Action.Index = static_cast<int>(FProject.Actions.size()) + 1;
    Action.File = FFileName;
    Action.Line = static_cast<int>(Table.Begin.Line);
    Action.Column = static_cast<int>(Table.Begin.Column);
    if (const TQXActionRegistration* Registration = FindType(Table))
    {
        Action.Type = Registration->ActionClass.ClassName;
        Action.Name = Registration->DisplayName;
        Action.Object = Registration->ActionClass.Create();
        Action.Object->SetDescription(Registration->DisplayName);
    }
    for (const TTomlEntry& Entry : Table.Entries)
        if (IsOneOf(Entry.Key, ActionKeys))
            ReadHostKey(Entry, Action);
    ReadProperties(Table, Action);
    if (Action.Object)
        Action.Object->Loaded();
    return Action;
}

const TQXActionRegistration* TReader::FindType(const TTomlNode& Table)
{
    const TTomlEntry* Entry = Table.Find("type");
    if (!Entry)
    {
        FFindings.Add(Table.Begin, "the action has no \"type\", which names its class");
        return nullptr;
    }
    const auto Type = FValues.String(*Entry);
    if (!Type)
        return nullptr;
    const TQXActionRegistration* Registration = QXActionServices().FindAction(*Type);
    if (!Registration)
    {
        std::vector<std::string_view> Names;
        for (const TQXActionRegistration& Known : QXActionServices().Actions())
            Names.push_back(Known.ActionClass.ClassName);
        FFindings.Add(Entry->Value.Begin,
                      fmt::format("there is no action type \"{}\"{}", *Type, DidYouMean(*Type, Names)));
    }
    return Registration;
}

void TReader::ReadHostKey(const TTomlEntry& Entry, TProjectAction& Action)
{
    if (Entry.Key == "name")
        Action.Name = FValues.String(Entry).value_or(std::string());
    else if (Entry.Key == "enabled")
        Action.Enabled = FValues.Boolean(Entry).value_or(true);
    else if (Entry.Key == "on_failure")
        Action.OnFailure =
            FValues.Element(Entry, OnFailureNames) == "continue" ? TOnFailure::Continue : TOnFailure::Stop;
    else if (Entry.Key == "timeout")
        Action.TimeoutSeconds = FValues.Integer(Entry, 0).value_or(0);
    else if (Entry.Key == "group")
        Action.Group = FValues.String(Entry).value_or(std::string());
    else if (Entry.Key == "when")
        Action.When = ReadWhen(Entry);
    else if (Entry.Key == "arguments")
        Action.Arguments = ReadArguments(Entry, Action);
    else if (Entry.Key == "scripts")
        if (const TTomlNode* Table = FValues.Table(Entry))
            ReadScripts(*Table, Action);
}

std::string TReader::ReadWhen(const TTomlEntry& Entry)
try
{
    std::string When = FValues.String(Entry).value_or(std::string());
    if (Entry.Value.Kind == TTomlKind::String)
        CheckCondition(When);
    return When;
}
catch (const EConditionError& Error)
{
    FFindings.Add(PlaceInString(FDocument, Entry.Value, Error.Offset), fmt::format("\"when\": {}", Error.what()));
    return {};
}

std::string TReader::ReadArguments(const TTomlEntry& Entry, const TProjectAction& Action)
{
    if (Action.Object && !dynamic_cast<const TQXExecuteAbstractAction*>(Action.Object.get()))
        FFindings.Add(Entry.Position, fmt::format("{} runs no tool that could take \"arguments\"", Action.Type));
    return FValues.String(Entry).value_or(std::string());
}

/// Restores in the order of declaration: the accessors of some properties look at earlier ones.
void TReader::ReadProperties(const TTomlNode& Table, const TProjectAction& Action)
{
    const std::span<const TQXProperty> Properties =
        Action.Object ? std::span<const TQXProperty>(Action.Object->Properties()) : std::span<const TQXProperty>();
    std::vector<std::optional<TQXPropertyValue>> Values(Properties.size());
    for (const TTomlEntry& Entry : Table.Entries)
    {
        if (IsOneOf(Entry.Key, ActionKeys))
            continue;
        const auto Property = std::find_if(Properties.begin(), Properties.end(), [&](const TQXProperty& Candidate) {
            return Candidate.IsPersisted() && Candidate.Name == Entry.Key;
        });
        if (Property == Properties.end())
            AddUnknownKey(Entry, Action);
        else
            Values[static_cast<std::size_t>(Property - Properties.begin())] = FValues.Property(Entry, *Property);
    }
    for (std::size_t Index = 0; Index < Values.size(); ++Index)
        if (Values[Index])
            Properties[Index].Write(*Values[Index]);
}

void TReader::ReadScripts(const TTomlNode& Table, const TProjectAction& Action)
{
    if (!Action.Object)
        return;
    for (const TTomlEntry& Entry : Table.Entries)
    {
        const auto& Scripts = Action.Object->Scripts();
        const auto Script = std::find_if(Scripts.begin(), Scripts.end(),
                                         [&](const auto& Candidate) { return Candidate->Name() == Entry.Key; });
        if (Script == Scripts.end())
            AddUnknownScript(Entry, Action);
        else if (auto Text = FValues.String(Entry))
            (*Script)->SetText(std::move(*Text));
    }
}

/// Of an action without a known type only the host's own keys can be judged.
void TReader::AddUnknownKey(const TTomlEntry& Entry, const TProjectAction& Action)
{
    std::vector<std::string_view> Names(ActionKeys.begin(), ActionKeys.end());
    if (Action.Object)
        for (const TQXProperty& Property : Action.Object->Properties())
            if (Property.IsPersisted())
                Names.push_back(Property.Name);
    const std::string_view Nearest = NearestName(Entry.Key, Names);
    const bool IsHostKey = Nearest.empty() ? !Entry.Key.empty() && Entry.Key[0] >= 'a' && Entry.Key[0] <= 'z'
                                           : IsOneOf(Nearest, ActionKeys);
    if (IsHostKey)
        FFindings.Add(Entry.Position,
                      fmt::format("[[action]] has no key \"{}\"{}", Entry.Key, DidYouMean(Entry.Key, Names)));
    else if (Action.Object)
        FFindings.Add(Entry.Position,
                      fmt::format("{} has no property \"{}\"{}", Action.Type, Entry.Key, DidYouMean(Entry.Key, Names)));
}

void TReader::AddUnknownScript(const TTomlEntry& Entry, const TProjectAction& Action)
{
    std::vector<std::string_view> Names;
    for (const auto& Script : Action.Object->Scripts())
        Names.push_back(Script->Name());
    FFindings.Add(Entry.Position,
                  fmt::format("{} has no script \"{}\"{}", Action.Type, Entry.Key, DidYouMean(Entry.Key, Names)));
}
} // namespace

TProjectPart ReadProjectPart(const TTomlDocument& Document, const std::string& FileName, TFileFindings& Findings)
{
    TProjectPart Part;
    Part.Content.File = Paths::Expand(FileName, Files::CurrentFolder());
    Part.Content.Folder = Paths::WithoutTrailing(Paths::Folder(Part.Content.File));
    Part.Content.Name = DefaultProjectName(Part.Content);
    TReader(Part, Document, FileName, Findings).ReadRoot(Document.Root());
    return Part;
}

std::string DefaultProjectName(const TProject& Project)
{
    const std::string FolderName = Paths::FileName(Project.Folder);
    return FolderName.empty() ? Paths::BareName(Project.File) : FolderName;
}
