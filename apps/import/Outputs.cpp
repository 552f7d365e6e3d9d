#include "apps/import/Outputs.h"

#include "apps/import/Configurations.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <algorithm>
#include <fmt/format.h>

namespace
{
/// A text as a literal of JavaScript.
std::string Literal(std::string_view Text)
{
    std::string Result = "\"";
    for (const char Character : Text)
        if (Character == '"' || Character == '\\')
            Result.append(1, '\\').append(1, Character);
        else if (static_cast<unsigned char>(Character) < 0x20)
            Result += fmt::format("\\x{:02X}", static_cast<unsigned char>(Character));
        else
            Result += Character;
    // The two line ends that no literal may hold.
    Result = Texts::Replace(Result, "\u2028", "\\u2028");
    return Texts::Replace(Result, "\u2029", "\\u2029") + '"';
}

/// The names under which references ask, with the answers.
class TAnswerTable
{
public:
    void Add(const std::string& Name, const std::string& Project, const std::string& Answer)
    {
        if (FAnswers.try_emplace(Name, Answer).first->second != Answer)
            FOwnAnswers.emplace(Project + '|' + Name, Answer);
    }
    /// A name that no reference asks for, for readers.
    void AddUnasked(const std::string& Name, const std::string& Answer) { FUnasked.emplace(Name, Answer); }

    [[nodiscard]] std::string Lines()
    {
        FAnswers.merge(FUnasked);
        std::vector<std::string> Lines;
        for (const auto* Answers : {&FAnswers, &FOwnAnswers})
            for (const auto& [Name, Answer] : *Answers)
                Lines.push_back(fmt::format("    {}: {}", Literal(Name), Answer));
        return fmt::format("{}", fmt::join(Lines, ",\n"));
    }
    [[nodiscard]] bool IsEmpty() const { return FAnswers.empty() && FUnasked.empty(); }
    [[nodiscard]] bool HasOwn() const { return !FOwnAnswers.empty(); }

private:
    std::map<std::string, std::string> FAnswers;
    std::map<std::string, std::string> FOwnAnswers; ///< where a project means another one by the same name
    std::map<std::string, std::string> FUnasked;
};

std::string WithoutFileName(const std::string& Path)
{
    const std::string Folder = Path.substr(0, Path.size() - Paths::FileName(Path).size());
    return Folder.empty() ? "." : Paths::WithoutTrailing(Folder);
}
} // namespace

bool AsksScript(TProjectKind Kind)
{
    return Kind == TProjectKind::CSharp || Kind == TProjectKind::VisualBasic;
}

TValueTexts TOutputs::ByValue(std::size_t Place, const std::string& Folder) const
{
    const TImportedProject& Project = FModel.Projects[Place];
    std::vector<std::string> Values;
    if (!Project.Configuration.HasVariable)
        Values = {FModel.Configuration};
    else if (!Project.Configuration.Before.empty() || !Project.Configuration.After.empty())
        Values = FModel.UsualConfigurations;
    else
        for (const TProjectConfiguration& Configuration : Project.Found.Configurations)
            Values.push_back(Configuration.Name);

    TValueTexts Result;
    for (const std::string& Value : Values)
        if (auto Path = ForValue(Place, Value, Folder))
            Result.emplace_back(Value, std::move(*Path));
    return Result;
}

std::optional<std::string> TOutputs::ForValue(std::size_t Place, const std::string& Value,
                                              const std::string& Folder) const
{
    const TImportedProject& Project = FModel.Projects[Place];
    const TProjectConfiguration* Configuration = Project.Found.Find(Project.Configuration.With(Value));
    if (!Configuration || (Configuration->OutputPath.empty() && Project.Found.Kind == TProjectKind::MSBuild))
        return {};
    const std::string Output = Paths::Expand(Configuration->OutputPath, Project.Found.Folder);
    return RelativePath(Paths::Join(Output, Project.Found.OutputName), Folder);
}

std::string TOutputs::Answer(const TAnsweredReference& Reference) const
{
    if (!Reference.Project)
        return Literal(
            EscapeExpression(FModel.Relative(Reference.LibraryFolder + LibraryFileName(Reference.Reference->Name))));
    const auto [Known, IsNew] = FAnswers.try_emplace(*Reference.Project);
    if (IsNew)
        Known->second = OutputAnswer(*Reference.Project);
    return Known->second;
}

std::string TOutputs::OutputAnswer(std::size_t Place) const
{
    const TValueTexts Values = ByValue(Place, FModel.BaseFolder);
    if (Values.empty())
        return {};
    if (const auto Common = CommonExpression(Values))
        return Literal(*Common);
    std::vector<std::string> Pairs;
    for (const auto& [Value, Path] : Values)
        Pairs.push_back(Literal(Value) + ": " + Literal(EscapeExpression(Path)));
    return fmt::format("{{ {} }}", fmt::join(Pairs, ", "));
}

std::vector<std::string> TOutputs::LibraryFolders(std::size_t Place) const
{
    const TImportedProject& Project = FModel.Projects[Place];
    std::vector<std::string> Result;
    const auto Add = [&](const std::string& Folder) {
        if (std::find(Result.begin(), Result.end(), Folder) == Result.end())
            Result.push_back(Folder);
    };
    for (const TAnsweredReference& Reference : Project.References)
    {
        if (Reference.Reference->Kind == TReferenceKind::Project && AsksScript(Project.Found.Kind))
            continue;
        if (!Reference.Project)
        {
            Add(EscapeExpression(WithoutFileName(RelativePath(Reference.LibraryFolder + "x", Project.Found.Folder))));
            continue;
        }
        TValueTexts Values = ByValue(*Reference.Project, Project.Found.Folder);
        for (auto& [Value, Path] : Values)
            Path = WithoutFileName(Path);
        if (const auto Common = CommonExpression(Values))
            Add(*Common);
        else
            for (const auto& [Value, Path] : Values)
                Add(EscapeExpression(Path));
    }
    return Result;
}

std::string TOutputs::Script(const std::vector<std::size_t>& Order) const
{
    TAnswerTable Table;
    for (const std::size_t Place : Order)
    {
        const TImportedProject& Project = FModel.Projects[Place];
        if (!AsksScript(Project.Found.Kind))
            continue;
        for (const TAnsweredReference& Reference : Project.References)
        {
            const std::string Text = Answer(Reference);
            if (Text.empty())
                continue;
            if (Reference.Reference->Kind == TReferenceKind::Project)
                Table.Add(LibraryFileName(Reference.Reference->Name),
                          EscapeExpression(FModel.Relative(Project.Found.File)), Text);
            else if (Reference.Project)
                Table.AddUnasked(FModel.Projects[*Reference.Project].Found.OutputName, Text);
        }
    }
    if (Table.IsEmpty())
        return {};
    const std::string Lines = Table.Lines();
    std::string Script = fmt::format("var outputs = {{\n{}\n}};\n", Lines);
    Script += Table.HasOwn()
                  ? "var output = outputs[Action.ProjectFile + \"|\" + AssemblyName] || outputs[AssemblyName];\n"
                  : "var output = outputs[AssemblyName];\n";
    if (Lines.find(": { ") != std::string::npos)
        Script += "if (typeof output == \"object\")\n    output = output[Action.ExpandExpression(\"%Config%\")];\n";
    return Script + "if (output)\n    ResolvedAssemblyFilePath = Action.ExpandExpression(output);\n";
}
