#include "apps/import/ProjectWriter.h"

#include "apps/import/Outputs.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "runtime/projects/TomlText.h"

#include <fmt/format.h>
#include <map>

namespace
{
constexpr std::string_view LineEnd = "\n";
constexpr std::string_view StampedName = "AssemblyInfo";

std::string Comment(std::string_view Text)
{
    return fmt::format("# {}\n", OneLine(Text));
}

std::string Setting(std::string_view Key, const std::string& Value)
{
    return fmt::format("{} = {}\n", Key, TomlText::Lines(Value, LineEnd));
}

class TProjectWriter
{
public:
    TProjectWriter(const TImportModel& Model, const std::vector<std::size_t>& Order)
        : FModel(Model), FOrder(Order), FOutputs(Model), FStampedFiles(StampedFiles())
    {}
    std::string Write(const std::string& Name, const std::vector<std::string>& Names);

private:
    [[nodiscard]] std::string Head(const std::string& Name) const;
    [[nodiscard]] std::string Variables() const;
    [[nodiscard]] std::string Scripts() const;
    [[nodiscard]] std::string Stamp() const;
    [[nodiscard]] std::string Action(std::size_t Place, const std::string& Name) const;
    [[nodiscard]] std::string MSBuildSettings(const TImportedProject& Project) const;
    [[nodiscard]] std::string CompilerSettings(std::size_t Place) const;
    [[nodiscard]] std::vector<std::string> StampedFiles() const;

    const TImportModel& FModel;
    const std::vector<std::size_t>& FOrder;
    TOutputs FOutputs;
    std::vector<std::string> FStampedFiles;
};

std::string TProjectWriter::Head(const std::string& Name) const
{
    std::string Result = "# Written by quexley init from the projects that lie here, and yours to change.\n"
                         "# quexley run --set Config=NAME builds another configuration.\n";
    for (const TImportNote& Note : FModel.Notes)
        Result += Comment(FModel.Relative(Note.Subject) + ": " + Note.Text);
    return Result + "[project]\n" + Setting("name", Name) + "follow_ide = true\n";
}

std::string TProjectWriter::Variables() const
{
    return "\n[variables]\n" + Setting("Config", EscapeExpression(FModel.Configuration)) +
           (FStampedFiles.empty() ? "" : Setting("Version", "1.0.0.0"));
}

std::string TProjectWriter::Scripts() const
{
    const std::string Script = FOutputs.Script(FOrder);
    return Script.empty()
               ? ""
               : "\n[scripts]\n# Where the outputs lie of projects to which others refer, by the names in the "
                 "references.\n" +
                     Setting("OnResolveProjectReference", Script);
}

std::vector<std::string> TProjectWriter::StampedFiles() const
{
    std::map<std::string, std::string> Found; // of one file, in whatever case it is named
    for (const std::size_t Place : FOrder)
    {
        const TFoundProject& Project = FModel.Projects[Place].Found;
        for (const std::string& Source : Project.Sources)
            if (Source.size() >= StampedName.size() && Texts::Same(Paths::BareName(Source), StampedName))
            {
                const std::string Path = FModel.Relative(Paths::Expand(Source, Project.Folder));
                Found.emplace(Texts::Lower(Path), EscapeExpression(Path));
            }
    }
    std::vector<std::string> Result;
    Result.reserve(Found.size());
    for (const auto& [Lower, Path] : Found)
        Result.push_back(Path);
    return Result;
}

std::string TProjectWriter::Stamp() const
{
    if (FStampedFiles.empty())
        return {};
    return "\n[[action]]\ntype = \"TQXAssemblyInfoUpdaterAction\"\nname = \"Stamp the version\"\nenabled = false\n"
           "Selection = " +
           TomlText::List(FStampedFiles, LineEnd) +
           "\nBackupFiles = false\nAttributes = ['AssemblyVersion=\"%Version%\"']\nUpdateOnly = true\n";
}

std::string TProjectWriter::MSBuildSettings(const TImportedProject& Project) const
{
    return Setting("BuildFile", "%ProjectDir%/" + EscapeExpression(FModel.Relative(Project.Found.File))) +
           fmt::format("Properties = {}\n",
                       TomlText::Array(std::vector{"Configuration=" + Project.Configuration.Expression()}));
}

std::string TProjectWriter::CompilerSettings(std::size_t Place) const
{
    const TImportedProject& Project = FModel.Projects[Place];
    std::string Result = Setting("ProjectFile", EscapeExpression(FModel.Relative(Project.Found.File))) +
                         Setting("ConfigName", Project.Configuration.Expression());
    if (Project.Found.Kind == TProjectKind::CSharpBuilder)
        return Result;
    if (const auto Folders = FOutputs.LibraryFolders(Place); !Folders.empty())
        Result += Setting("LibLocations", fmt::format("{}", fmt::join(Folders, ",")));
    if (Project.Found.IsProgram && Project.HasAppConfig)
        Result += "CopyConfigFiles = true\n";
    return Result;
}

std::string TProjectWriter::Action(std::size_t Place, const std::string& Name) const
{
    const TImportedProject& Project = FModel.Projects[Place];
    std::string Result = "\n";
    for (const std::string& Note : Project.Notes)
        Result += Comment(Note);
    Result += fmt::format("[[action]]\ntype = \"{}\"\n", ActionType(Project.Found.Kind)) + Setting("name", Name);
    if (Project.Found.IsCompact)
        Result += "enabled = false\n";
    Result += "group = \"compile\"\n";
    return Result + (Project.Found.Kind == TProjectKind::MSBuild ? MSBuildSettings(Project) : CompilerSettings(Place));
}

std::string TProjectWriter::Write(const std::string& Name, const std::vector<std::string>& Names)
{
    std::string Result = Head(Name) + Variables() + Scripts() + Stamp();
    for (std::size_t Index = 0; Index < FOrder.size(); ++Index)
        Result += Action(FOrder[Index], Names[Index]);
    return Result;
}
} // namespace

std::string_view ActionType(TProjectKind Kind)
{
    switch (Kind)
    {
    case TProjectKind::CSharp:
        return "TQXCSProjCompilerAction";
    case TProjectKind::VisualBasic:
        return "TQXVBProjCompilerAction";
    case TProjectKind::JSharp:
        return "TQXJSProjCompilerAction";
    case TProjectKind::CSharpBuilder:
        return "TQXBorlandCSBuilderProjCompilerAction";
    case TProjectKind::MSBuild:
        return "TMSBuildAction";
    }
    return {};
}

std::string WriteProject(const TImportModel& Model, const std::string& Name, const std::vector<std::size_t>& Order,
                         const std::vector<std::string>& Names)
{
    return TProjectWriter(Model, Order).Write(Name, Names);
}
