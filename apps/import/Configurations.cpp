#include "apps/import/Configurations.h"

#include "platform/Text.h"
#include "runtime/HostErrors.h"
#include "runtime/NearestName.h"

#include <algorithm>
#include <fmt/format.h>
#include <map>

namespace
{
constexpr std::string_view Variable = "%Config%";

/// The configurations of the included projects, counted.
class TCensus
{
public:
    explicit TCensus(const TImportModel& Model);
    /// In the spelling of the first project that has it; empty for one that none has.
    [[nodiscard]] std::string Spelling(std::string_view Name) const;
    [[nodiscard]] bool IsUsual(const std::string& Name, bool ForMost) const;
    [[nodiscard]] std::string MostFrequent() const;
    [[nodiscard]] const std::vector<std::string>& Names() const { return FNames; }

private:
    [[nodiscard]] std::size_t Count(std::string_view Name) const;

    std::vector<std::string> FNames;
    std::map<std::string, std::size_t> FCounts; ///< by the names in lower case
    std::size_t FProjects = 0;
};

TCensus::TCensus(const TImportModel& Model)
{
    for (const TImportedProject& Project : Model.Projects)
    {
        if (!Project.IsIncluded || Project.Found.Configurations.empty())
            continue;
        ++FProjects;
        for (const TProjectConfiguration& Configuration : Project.Found.Configurations)
            if (++FCounts[Texts::Lower(Configuration.Name)] == 1)
                FNames.push_back(Configuration.Name);
    }
}

std::size_t TCensus::Count(std::string_view Name) const
{
    const auto Found = FCounts.find(Texts::Lower(Name));
    return Found == FCounts.end() ? 0 : Found->second;
}

std::string TCensus::Spelling(std::string_view Name) const
{
    const auto Found =
        std::find_if(FNames.begin(), FNames.end(), [&](const std::string& Known) { return Texts::Same(Known, Name); });
    return Found == FNames.end() ? "" : *Found;
}

bool TCensus::IsUsual(const std::string& Name, bool ForMost) const
{
    return ForMost ? Count(Name) * 2 > FProjects : Count(Name) * 2 >= FProjects;
}

std::string TCensus::MostFrequent() const
{
    const auto Most =
        std::max_element(FNames.begin(), FNames.end(), [this](const std::string& Left, const std::string& Right) {
            return Count(Left) < Count(Right);
        });
    return Most == FNames.end() ? "" : *Most;
}

std::string WantedConfiguration(const TImportModel& Model, const TCensus& Census, const std::string& Wanted)
{
    if (std::string Spelling = Census.Spelling(Wanted); !Spelling.empty())
        return Spelling;
    std::vector<std::string> Names = Census.Names();
    for (const TSolution& Solution : Model.Solutions)
        for (const std::string& Name : Solution.Configurations)
        {
            if (Texts::Same(Name, Wanted))
                return Name;
            Names.push_back(Name);
        }
    if (Names.empty())
        return Wanted;
    throw EUsageError(fmt::format("no project has a configuration \"{}\"{}", Wanted,
                                  DidYouMean(Wanted, std::vector<std::string_view>(Names.begin(), Names.end()))));
}

std::string UsualConfiguration(const TCensus& Census)
{
    std::string Debug = Census.Spelling("Debug");
    if (!Debug.empty() && Census.IsUsual(Debug, true))
        return Debug;
    const std::string Most = Census.MostFrequent();
    return Most.empty() ? "Debug" : Most;
}

/// A text with one occurrence of a value replaced by the variable, or with all of them.
std::vector<std::string> WithVariable(const std::string& Text, const std::string& Value)
{
    std::vector<std::string> Result;
    const std::string Folded = Texts::Lower(Text);
    const std::string Wanted = Texts::Lower(Value);
    std::string All;
    std::size_t Done = 0;
    for (std::size_t Place = Folded.find(Wanted); !Wanted.empty() && Place != std::string::npos;
         Place = Folded.find(Wanted, Place + Wanted.size()))
    {
        All.append(Text, Done, Place - Done).append(Variable);
        Done = Place + Wanted.size();
        Result.push_back(Text.substr(0, Place).append(Variable).append(Text, Done));
    }
    if (!Result.empty())
        Result.insert(Result.begin(), All.append(Text, Done));
    return Result;
}

/// Which of its configurations a project takes that has not the chosen one.
class TSubstitute
{
public:
    TSubstitute(const TImportModel& Model, std::size_t Place)
        : FModel(Model), FPlace(Place), FProject(Model.Projects[Place].Found)
    {}
    [[nodiscard]] bool IsMapped() const { return Mapped(FModel.Configuration) != nullptr; }
    /// There is one: projects without any take what they are given.
    [[nodiscard]] TConfigurationText Text() const;

private:
    [[nodiscard]] const TProjectConfiguration* Mapped(const std::string& Value) const;
    [[nodiscard]] const TProjectConfiguration& Similar() const;
    [[nodiscard]] bool Holds(const TConfigurationText& Text) const;

    const TImportModel& FModel;
    std::size_t FPlace;
    const TFoundProject& FProject;
};

const TProjectConfiguration* TSubstitute::Mapped(const std::string& Value) const
{
    for (const std::size_t Solution : FModel.Projects[FPlace].Solutions)
        for (std::size_t Entry = 0; Entry < FModel.Entries[Solution].size(); ++Entry)
        {
            if (FModel.Entries[Solution][Entry] != FPlace)
                continue;
            const TSolution& In = FModel.Solutions[Solution];
            const std::string Name = In.Mapped(In.Entries[Entry].Guid, Value);
            const TProjectConfiguration* Found = FProject.Find(Name);
            if (!Found)
                Found = FProject.Find(Texts::Trim(std::string_view(Name).substr(0, Name.find('|'))));
            if (Found)
                return Found;
        }
    return nullptr;
}

const TProjectConfiguration& TSubstitute::Similar() const
{
    const auto& All = FProject.Configurations;
    const std::string Wanted = Texts::Lower(FModel.Configuration);
    const auto Found = std::find_if(All.begin(), All.end(), [&](const TProjectConfiguration& Candidate) {
        return Texts::Lower(Candidate.Name).find(Wanted) != std::string::npos;
    });
    return Found == All.end() ? All.front() : *Found;
}

/// Whether the text names the right configuration for every other usual value, of which there is one.
bool TSubstitute::Holds(const TConfigurationText& Text) const
{
    bool IsTried = false;
    for (const std::string& Value : FModel.UsualConfigurations)
    {
        if (Texts::Same(Value, FModel.Configuration))
            continue;
        const TProjectConfiguration* Meant = Mapped(Value);
        const TProjectConfiguration* Named = FProject.Find(Text.With(Value));
        if (!Named || (Meant && Meant != Named))
            return false;
        IsTried = true;
    }
    return IsTried;
}

TConfigurationText TSubstitute::Text() const
{
    const TProjectConfiguration* Meant = Mapped(FModel.Configuration);
    const std::string Name = Meant ? Meant->Name : Similar().Name;
    const std::size_t Place = Texts::Lower(Name).find(Texts::Lower(FModel.Configuration));
    if (Place != std::string::npos)
        if (TConfigurationText Text{Name.substr(0, Place), true, Name.substr(Place + FModel.Configuration.size())};
            Holds(Text))
            return Text;
    return {Name};
}
} // namespace

void ChooseConfigurations(TImportModel& Model, const std::string& Wanted)
{
    const TCensus Census(Model);
    Model.Configuration = Wanted.empty() ? UsualConfiguration(Census) : WantedConfiguration(Model, Census, Wanted);
    for (const std::string& Name : Census.Names())
        if (Census.IsUsual(Name, false) || Name == Model.Configuration)
            Model.UsualConfigurations.push_back(Name);
    for (std::size_t Place = 0; Place < Model.Projects.size(); ++Place)
    {
        TImportedProject& Project = Model.Projects[Place];
        Project.Configuration = {"", true, ""};
        if (!Project.IsIncluded || Project.Found.Configurations.empty())
            continue;
        const TSubstitute Substitute(Model, Place);
        // MSBuild passes its configuration on to the projects that it refers to, which need not have the same ones.
        const bool IsMappedOnly = Project.Found.Kind == TProjectKind::MSBuild && Substitute.IsMapped();
        if (!IsMappedOnly && Project.Found.Find(Model.Configuration))
            continue;
        Project.Configuration = Substitute.Text();
        if (!Substitute.IsMapped())
            Project.Notes.push_back(fmt::format("it has no configuration \"{}\", \"{}\" is taken", Model.Configuration,
                                                Project.Configuration.With(Model.Configuration)));
    }
}

std::optional<std::string> CommonExpression(const TValueTexts& Values)
{
    if (Values.empty())
        return {};
    std::vector<std::string> Candidates =
        WithVariable(EscapeExpression(Values.front().second), EscapeExpression(Values.front().first));
    Candidates.insert(Candidates.begin(), EscapeExpression(Values.front().second));
    for (const std::string& Candidate : Candidates)
        if (std::all_of(Values.begin(), Values.end(), [&](const auto& Value) {
                const std::string Filled = Texts::Replace(Candidate, Variable, EscapeExpression(Value.first));
                return Texts::Same(Filled, EscapeExpression(Value.second));
            }))
            return Candidate;
    return {};
}
