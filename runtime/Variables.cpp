#include "runtime/Variables.h"

#include "platform/Files.h"
#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>

namespace
{
/// What variables may bring to one expansion in all, the texts on the way included. A property's own text may have
/// any length: a project of 40,000 files has megabytes of names.
constexpr std::size_t LargestWork = std::size_t{16} << 20;

bool IsNameStart(char Character)
{
    return (Character >= 'a' && Character <= 'z') || (Character >= 'A' && Character <= 'Z') || Character == '_';
}

bool IsNamePart(char Character)
{
    return IsNameStart(Character) || (Character >= '0' && Character <= '9') || Character == '.';
}

/// How much at the beginning of Text may be the name of a variable.
std::size_t NameLength(std::string_view Text)
{
    if (Text.empty() || !IsNameStart(Text.front()))
        return 0;
    return static_cast<std::size_t>(std::find_if_not(Text.begin(), Text.end(), IsNamePart) - Text.begin());
}

/// The name at the beginning of Text if a percent sign follows it, else empty.
std::string_view NameBeforePercent(std::string_view Text)
{
    const std::size_t Length = NameLength(Text);
    return Text.substr(Length).starts_with('%') ? Text.substr(0, Length) : std::string_view();
}

/// One expansion. Values wait for the variables that they use on a stack of its own, so that long chains of
/// variables cost memory and not the program's stack; each variable is expanded once.
class TExpander
{
public:
    TExpander(const TVariables& Variables, TUnknownVariables Unknown) : FVariables(Variables), FUnknown(Unknown) {}

    TExpansion Expand(std::string_view Text)
    {
        FStack.push_back({{}, {}, Text, {}});
        while (true)
        {
            if (!Advance())
                return {false, {}, std::move(FReason)};
            if (!FStack.back().Rest.empty())
                continue;
            TPending Done = std::move(FStack.back());
            FStack.pop_back();
            if (FStack.empty())
                return {true, std::move(Done.Result), {}};
            FKnown[Done.Key] = {false, std::move(Done.Result)};
            if (!Append(FKnown[Done.Key].Text, Done.Name))
                return {false, {}, std::move(FReason)};
        }
    }

private:
    /// A text on its way: the variable that it is the value of, what is still to be read, what has become of it.
    struct TPending
    {
        std::string Name;
        std::string Key;
        std::string_view Rest;
        std::string Result;
    };
    struct TKnown
    {
        bool IsOpen = false; ///< waits on the stack
        std::string Text;
    };

    /// Reads on up to a variable whose value must be expanded first, or to the end.
    bool Advance()
    {
        while (!FStack.back().Rest.empty())
        {
            const std::size_t Depth = FStack.size();
            if (!ReadPiece(FStack.back()))
                return false;
            if (FStack.size() > Depth)
                return true;
        }
        return true;
    }

    bool ReadPiece(TPending& Pending)
    {
        std::string_view& Rest = Pending.Rest;
        const std::size_t Plain = std::min(Rest.find('%'), Rest.size());
        const std::string_view Text = Rest.substr(0, Plain);
        Rest.remove_prefix(Plain);
        if (!Append(Text, Pending.Name))
            return false;
        if (Rest.empty())
            return true;
        Rest.remove_prefix(1);
        if (const std::string_view Name = NameBeforePercent(Rest); !Name.empty())
        {
            Rest.remove_prefix(Name.size() + 1);
            return ReadVariable(Name);
        }
        if (Rest.starts_with('%'))
            Rest.remove_prefix(1);
        return Append("%", Pending.Name);
    }

    bool ReadVariable(std::string_view Name)
    {
        std::string Key = Texts::Lower(Name);
        if (const auto Known = FKnown.find(Key); Known != FKnown.end())
        {
            if (Known->second.IsOpen)
                return Fail(fmt::format("the variable \"{}\" leads back to itself", Name));
            return Append(Known->second.Text, Name);
        }
        TVariables::TValue Value = FVariables.Find(Name);
        if (!Value.Found && FUnknown == TUnknownVariables::AreEmpty)
            return true;
        if (!Value.Found)
            return Fail(fmt::format("unknown variable \"{}\"", Name));
        if (Value.IsLiteral)
            return Append(Value.Text.empty() ? Value.OfEnvironment : Value.Text, Name);
        FKnown[Key].IsOpen = true;
        FStack.push_back({std::string(Name), std::move(Key), Value.Text, {}});
        return true;
    }

    /// Adds to the text on top; Name is the variable that brings the addition.
    bool Append(std::string_view Addition, std::string_view Name)
    {
        if (!Name.empty())
            FWork += Addition.size();
        if (FWork > LargestWork)
            return Fail(fmt::format("the variable \"{}\" makes the text longer than 16 MiB", Name));
        FStack.back().Result += Addition;
        return true;
    }

    bool Fail(std::string Reason)
    {
        FReason = std::move(Reason);
        return false;
    }

    const TVariables& FVariables;
    TUnknownVariables FUnknown;
    std::vector<TPending> FStack;
    std::unordered_map<std::string, TKnown> FKnown;
    std::size_t FWork = 0;
    std::string FReason;
};
} // namespace

bool IsVariableName(std::string_view Name)
{
    return !Name.empty() && NameLength(Name) == Name.size();
}

std::vector<std::string_view> VariablesIn(std::string_view Text)
{
    std::vector<std::string_view> Names;
    for (std::size_t Percent = Text.find('%'); Percent != std::string_view::npos; Percent = Text.find('%'))
    {
        Text.remove_prefix(Percent + 1);
        const std::string_view Name = NameBeforePercent(Text);
        if (!Name.empty())
            Names.push_back(Name);
        Text.remove_prefix(!Name.empty() ? Name.size() + 1 : Text.starts_with('%') ? 1 : 0);
    }
    return Names;
}

TVariables::TMap TVariables::Index(const TPairs& Pairs)
{
    TMap Map;
    for (const auto& [Name, Value] : Pairs)
        Map[Texts::Lower(Name)] = Value;
    return Map;
}

TVariables::TValue TVariables::Find(std::string_view Name) const
{
    const std::string Key = Texts::Lower(Name);
    for (const TMap* Map : {&FOverrides, &FProject, &FHost})
        if (const auto Found = Map->find(Key); Found != Map->end())
            return {true, Map == &FHost, Found->second, {}};
    TValue Value;
    Value.IsLiteral = true;
    Value.Found = Environment::GetSame(Name, Value.OfEnvironment);
    return Value;
}

TExpansion TVariables::Expand(std::string_view Text, TUnknownVariables Unknown) const
{
    if (Text.find('%') == std::string_view::npos)
        return {true, std::string(Text), {}};
    return TExpander(*this, Unknown).Expand(Text);
}
