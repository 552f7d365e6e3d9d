#include "apps/quexley/commands/ShownClass.h"

#include "platform/Text.h"
#include "runtime/HostErrors.h"
#include "runtime/NearestName.h"
#include "runtime/Runtime.h"
#include "runtime/projects/FileFindings.h"
#include "runtime/projects/TomlText.h"
#include "runtime/properties/ValueCheck.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

namespace
{
/// A registered class; one of the two is set.
struct TCandidate
{
    std::string_view ClassName;
    std::string_view Name;
    const TQXActionRegistration* Action = nullptr;
    const TQXOptionsClass* Options = nullptr;
};

std::vector<TCandidate> Candidates(TQXRuntime& Runtime)
{
    std::vector<TCandidate> Result;
    for (const TQXActionRegistration& Action : Runtime.ActionServices().Actions())
        Result.push_back({Action.ActionClass.ClassName, Action.DisplayName, &Action});
    for (const TQXOptionsRegistration& Options : Runtime.OptionsServices().Options())
        Result.push_back({Options.OptionsClass.ClassName, Options.OptionsClass.Name, nullptr, &Options.OptionsClass});
    return Result;
}

TCandidate Find(const std::vector<TCandidate>& Known, const std::string& Name)
{
    for (const auto Member : {&TCandidate::ClassName, &TCandidate::Name})
        for (const TCandidate& Candidate : Known)
            if (Candidate.*Member == Name)
                return Candidate;
    std::vector<TCandidate> Alike;
    std::vector<std::string_view> Names;
    std::vector<std::string_view> AlikeNames;
    for (const TCandidate& Candidate : Known)
    {
        Names.insert(Names.end(), {Candidate.ClassName, Candidate.Name});
        if (!Texts::Same(Candidate.ClassName, Name) && !Texts::Same(Candidate.Name, Name))
            continue;
        Alike.push_back(Candidate);
        AlikeNames.push_back(Candidate.ClassName);
    }
    if (Alike.size() > 1)
        throw EUsageError(fmt::format("\"{}\" may be any of {}", Name, QuotedNames(AlikeNames)));
    if (Alike.empty())
        throw EUsageError(fmt::format("there is no class \"{}\"{}", Name, DidYouMean(Name, Names)));
    return Alike.front();
}
} // namespace

bool TShownClass::IsHidden(std::string_view Name) const
{
    return std::find(Hidden.begin(), Hidden.end(), Name) != Hidden.end();
}

TShownClass FindShownClass(TQXRuntime& Runtime, const std::string& Name)
{
    const TCandidate Found = Find(Candidates(Runtime), Name);
    const std::string& Category = Found.Action ? Found.Action->Category : Found.Options->Category;
    TShownClass Result;
    Result.ClassName = Found.ClassName;
    Result.Title = fmt::format("{}: {} ({})", Found.ClassName, Found.Name, Category);
    if (Found.Action)
    {
        std::unique_ptr<TCustomQXAction> Action = Found.Action->ActionClass.Create();
        Result.QuickHelpFilename = Found.Action->ActionClass.QuickHelpFilename;
        Action->GetHiddenProperties(Result.Hidden);
        Result.Action = Action.get();
        Result.Object = std::move(Action);
    }
    else
        Result.Object = Found.Options->Create();
    return Result;
}

std::string ExampleBlock(const TShownClass& Action)
{
    std::string Result = fmt::format("[[action]]\ntype = {}\n", TomlText::String(Action.ClassName));
    for (const TQXProperty& Property : Action.Object->Properties())
        if (Property.IsRequired())
        {
            const auto Value = ParsePropertyText(Property, Property.Name, std::string(Property.Example));
            Result += fmt::format("{} = {}\n", Property.Name, TomlText::Value(Property.Type, Value, "\n"));
        }
    return Result;
}
