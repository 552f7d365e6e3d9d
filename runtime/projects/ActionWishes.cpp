#include "runtime/projects/ActionWishes.h"

#include "host/QXServices.h"
#include "runtime/HostErrors.h"
#include "runtime/projects/ProjectReader.h"
#include "runtime/projects/TomlText.h"
#include "runtime/projects/ValueReader.h"

#include <fmt/format.h>
#include <unordered_map>

namespace
{
using TKind = TTomlWish::TKind;

/// What did not change stays, what is the default goes. MakeValue gives the value as TOML.
template <typename TMakeValue>
TTomlWish Wish(std::string_view Key, bool IsUnchanged, bool IsDefault, TMakeValue MakeValue)
{
    if (IsUnchanged)
        return {TKind::Keep, std::string(Key), {}};
    if (IsDefault)
        return {TKind::Remove, std::string(Key), {}};
    return {TKind::Write, std::string(Key), MakeValue()};
}

TTomlWish TextWish(std::string_view Key, const std::string* Old, const std::string& Text)
{
    return Wish(Key, Old && *Old == Text, Text.empty(), [&] { return TomlText::String(Text); });
}

std::vector<TTomlWish> HostKeyWishes(const TProjectAction& Action, const TProjectAction* Old,
                                     const std::string& DefaultName)
{
    return {
        Wish("type", Old, false, [&] { return TomlText::String(Action.Type); }),
        Wish("name", Old && Old->Name == Action.Name, Action.Name == DefaultName,
             [&] { return TomlText::String(Action.Name); }),
        Wish("enabled", Old && Old->Enabled == Action.Enabled, Action.Enabled,
             [&] { return TomlText::Boolean(Action.Enabled); }),
        Wish("on_failure", Old && Old->OnFailure == Action.OnFailure, Action.OnFailure == TOnFailure::Stop,
             [&] { return TomlText::String(OnFailureNames[static_cast<std::size_t>(Action.OnFailure)]); }),
        Wish("timeout", Old && Old->TimeoutSeconds == Action.TimeoutSeconds, Action.TimeoutSeconds == 0,
             [&] { return std::to_string(Action.TimeoutSeconds); }),
        TextWish("group", Old ? &Old->Group : nullptr, Action.Group),
        TextWish("when", Old ? &Old->When : nullptr, Action.When),
        TextWish("arguments", Old ? &Old->Arguments : nullptr, Action.Arguments),
    };
}

template <typename TMakeText>
std::vector<TTomlWish> PairWishes(const TVariables::TPairs& Pairs, const TVariables::TPairs& Original,
                                  TMakeText MakeText)
{
    std::unordered_map<std::string_view, std::string_view> Old(Original.begin(), Original.end());
    std::vector<TTomlWish> Wishes;
    for (const auto& [Name, Value] : Pairs)
    {
        const auto Known = Old.find(Name);
        Wishes.push_back(Wish(Name, Known != Old.end() && Known->second == Value, false,
                              [&, &Text = Value] { return MakeText(Text); }));
        if (Known != Old.end())
            Old.erase(Known);
    }
    for (const auto& [Name, Value] : Old)
        Wishes.push_back({TKind::Remove, std::string(Name), {}});
    return Wishes;
}

/// Decides property after property whether it has to be written, on an object that is restored along the way
/// from what the file will hold: so the default of a property whose accessors look at others is the one it will
/// have when the file is read.
class TPropertyWishes
{
public:
    TPropertyWishes(TCustomQXAction& Replay, TStoredAction Stored, std::string_view LineEnd)
        : FReplay(Replay), FStored(Stored), FLineEnd(LineEnd)
    {}

    TTomlWish ForProperty(const TCustomQXAction& Object, std::size_t Index)
    {
        const TQXProperty& Property = Object.Properties()[Index];
        const TQXProperty& Replayed = FReplay.Properties()[Index];
        const TQXPropertyValue Value = Property.Read();
        const TTomlEntry* Entry = FStored.Table ? FStored.Table->Find(Property.Name) : nullptr;
        const bool IsUnchanged = Entry && FStored.Action->Object->Properties()[Index].Read() == Value;
        if (IsUnchanged)
            Restore(*Entry, Replayed);
        if (IsUnchanged || (Replayed.Read() == Value && !Property.IsAlwaysStored()))
            return {IsUnchanged || !Entry ? TKind::Keep : TKind::Remove, std::string(Property.Name), {}};
        Replayed.Write(Value);
        return {TKind::Write, std::string(Property.Name), TomlText::Value(Property.Type, Value, FLineEnd)};
    }

private:
    static void Restore(const TTomlEntry& Entry, const TQXProperty& Property)
    {
        TFileFindings Findings({});
        if (const auto Value = TValueReader(Findings).Property(Entry, Property))
            Property.Write(*Value);
    }

    TCustomQXAction& FReplay;
    TStoredAction FStored;
    std::string_view FLineEnd;
};
} // namespace

std::vector<TTomlWish> RootWishes(const TProject& Project, const TProject& Original, std::string_view LineEnd)
{
    return {Wish("include", Project.Includes == Original.Includes, Project.Includes.empty(),
                 [&] { return TomlText::List(Project.Includes, LineEnd); })};
}

std::vector<TTomlWish> ProjectWishes(const TProject& Project, const TProject& Original)
{
    return {
        Wish("name", Project.Name == Original.Name, Project.Name == DefaultProjectName(Project),
             [&] { return TomlText::String(Project.Name); }),
        Wish("secrets", Project.Secrets == Original.Secrets, Project.Secrets.empty(),
             [&] { return TomlText::Array(Project.Secrets); }),
        Wish("follow_ide", Project.FollowsIDE == Original.FollowsIDE, !Project.FollowsIDE,
             [&] { return TomlText::Boolean(Project.FollowsIDE); }),
    };
}

std::vector<TTomlWish> VariableWishes(const TVariables::TPairs& Variables, const TVariables::TPairs& Original)
{
    return PairWishes(Variables, Original, &TomlText::String);
}

std::vector<TTomlWish> ProjectScriptWishes(const TProject& Project, const TProject& Original, std::string_view LineEnd)
{
    return PairWishes(Project.Scripts, Original.Scripts,
                      [&](const std::string& Text) { return TomlText::Lines(Text, LineEnd); });
}

std::vector<TTomlWish> ActionWishes(const TProjectAction& Action, TStoredAction Stored, std::string_view LineEnd)
{
    const TQXActionRegistration* Registration = QXActionServices().FindAction(Action.Type);
    if (!Registration)
        throw EUsageError(fmt::format("there is no action type \"{}\"", Action.Type));
    std::vector<TTomlWish> Wishes = HostKeyWishes(Action, Stored.Action, Registration->DisplayName);
    const std::unique_ptr<TCustomQXAction> Replay = Registration->ActionClass.Create();
    TPropertyWishes Properties(*Replay, Stored, LineEnd);
    for (std::size_t Index = 0; Index < Action.Object->Properties().size(); ++Index)
        if (Action.Object->Properties()[Index].IsPersisted())
            Wishes.push_back(Properties.ForProperty(*Action.Object, Index));
    return Wishes;
}

std::vector<TTomlWish> ScriptWishes(const TProjectAction& Action, TStoredAction Stored, std::string_view LineEnd)
{
    std::vector<TTomlWish> Wishes;
    for (std::size_t Index = 0; Index < Action.Object->Scripts().size(); ++Index)
    {
        const TQXScript& Script = *Action.Object->Scripts()[Index];
        const bool IsUnchanged = Stored.Action && Stored.Action->Object->Scripts()[Index]->Text() == Script.Text();
        Wishes.push_back(Wish(Script.Name(), IsUnchanged, Script.Text().empty(),
                              [&] { return TomlText::Lines(Script.Text(), LineEnd); }));
    }
    return Wishes;
}
