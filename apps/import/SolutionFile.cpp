#include "apps/import/SolutionFile.h"

#include "apps/import/ProjectFile.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "runtime/HostErrors.h"

#include <algorithm>

namespace
{
constexpr std::string_view FolderType = "2150E333-8FDC-42A3-9474-1A3956D46DE8";
constexpr std::string_view ActiveSuffix = ".ActiveCfg";

/// The texts in double quotes of a line.
std::vector<std::string> QuotedTexts(std::string_view Line)
{
    std::vector<std::string> Result;
    for (std::size_t Start = Line.find('"'); Start != std::string_view::npos;)
    {
        const std::size_t End = Line.find('"', Start + 1);
        if (End == std::string_view::npos)
            break;
        Result.emplace_back(Line.substr(Start + 1, End - Start - 1));
        Start = Line.find('"', End + 1);
    }
    return Result;
}

/// The part of a configuration's name before its platform.
std::string WithoutPlatform(std::string_view Name)
{
    return std::string(Texts::Trim(Name.substr(0, Name.find('|'))));
}

class TSolutionReader
{
public:
    explicit TSolutionReader(TSolution& Solution) : FSolution(Solution) {}
    void ReadLine(std::string_view Line);

private:
    void ReadSetting(std::string_view Name, std::string_view Value);
    void ReadActive(std::string_view Name, std::string_view Value);
    void AddDependency(std::string_view Name, std::string_view Value);
    void AddConfiguration(std::string_view Name);

    TSolution& FSolution;
    std::string FSection;
};

void TSolutionReader::ReadLine(std::string_view Line)
{
    if (Line.starts_with("Project("))
    {
        if (const auto Parts = QuotedTexts(Line); Parts.size() >= 4)
            FSolution.Entries.push_back({PlainGuid(Parts[0]), Parts[1], Parts[2], PlainGuid(Parts[3])});
    }
    else if (Line.starts_with("GlobalSection(") || Line.starts_with("ProjectSection("))
    {
        const std::size_t Start = Line.find('(') + 1;
        FSection = Line.substr(Start, Line.find(')') - Start);
    }
    else if (Line.starts_with("EndGlobalSection") || Line.starts_with("EndProjectSection"))
        FSection.clear();
    else if (const std::size_t Equals = Line.find('='); Equals != std::string_view::npos)
        ReadSetting(Texts::Trim(Line.substr(0, Equals)), Texts::Trim(Line.substr(Equals + 1)));
}

void TSolutionReader::ReadSetting(std::string_view Name, std::string_view Value)
{
    if (FSection == "SolutionConfiguration" || FSection == "SolutionConfigurationPlatforms")
        AddConfiguration(Value);
    else if (FSection == "ProjectConfiguration" || FSection == "ProjectConfigurationPlatforms")
        ReadActive(Name, Value);
    else if (FSection == "ProjectDependencies")
        AddDependency(Name, Value);
}

void TSolutionReader::AddConfiguration(std::string_view Name)
{
    const std::string Plain = WithoutPlatform(Name);
    auto& Known = FSolution.Configurations;
    if (std::find(Known.begin(), Known.end(), Plain) == Known.end())
        Known.push_back(Plain);
}

/// `{GUID}.CONFIGURATION.ActiveCfg`: the name of a configuration may hold full stops and a platform.
void TSolutionReader::ReadActive(std::string_view Name, std::string_view Value)
{
    const std::size_t Dot = Name.find('.');
    if (!Name.ends_with(ActiveSuffix) || Dot + ActiveSuffix.size() >= Name.size())
        return;
    const std::string_view Configuration = Name.substr(Dot + 1, Name.size() - ActiveSuffix.size() - Dot - 1);
    FSolution.Mapping.try_emplace({PlainGuid(Name.substr(0, Dot)), Texts::Lower(WithoutPlatform(Configuration))},
                                  Value);
}

void TSolutionReader::AddDependency(std::string_view Name, std::string_view Value)
{
    const bool IsOfEntry = Name.find("}.") == std::string_view::npos; // in the section of its project
    const std::string Guid = IsOfEntry ? (FSolution.Entries.empty() ? "" : FSolution.Entries.back().Guid)
                                       : PlainGuid(Name.substr(0, Name.find('.')));
    FSolution.Dependencies[Guid].push_back(PlainGuid(Value));
}
} // namespace

bool TSolutionEntry::IsFolder() const
{
    return Type == FolderType;
}

bool TSolutionEntry::IsUrl() const
{
    return Texts::StartsWithSame(Path, "http://") || Texts::StartsWithSame(Path, "https://");
}

std::string TSolution::Mapped(const std::string& Guid, std::string_view Configuration) const
{
    const auto Found = Mapping.find({Guid, Texts::Lower(Configuration)});
    return Found == Mapping.end() ? "" : Found->second;
}

TSolution ReadSolution(const std::string& File)
{
    const std::string Text = Texts::Decode(Files::Read(File));
    TSolution Solution{.File = File, .Folder = Paths::Folder(File)};
    TSolutionReader Reader(Solution);
    if (Text.substr(0, 256).find("Microsoft Visual Studio Solution File") == std::string::npos)
        throw EHostFileError({.File = File, .Line = 1, .Message = "this is no solution of Visual Studio"});
    for (std::size_t Start = 0; Start < Text.size();)
    {
        const std::size_t End = std::min(Text.find_first_of("\r\n", Start), Text.size());
        Reader.ReadLine(Texts::Trim(std::string_view(Text).substr(Start, End - Start)));
        Start = End + 1;
    }
    return Solution;
}
