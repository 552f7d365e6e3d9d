#include "apps/import/Import.h"

#include "apps/import/BuildOrder.h"
#include "apps/import/Configurations.h"
#include "apps/import/Gather.h"
#include "apps/import/Outputs.h"
#include "apps/import/ProjectWriter.h"
#include "platform/FileTrees.h"
#include "platform/Files.h"
#include "platform/Links.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "runtime/HostErrors.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <map>
#include <unordered_map>

namespace
{
constexpr std::string_view DefaultName = "quexley.toml";

/// The folder or solution, behind all links.
std::string ResolveSource(const std::string& Source)
{
    const std::string Path = Files::Find(Paths::Expand(Source.empty() ? "." : Source, Files::CurrentFolder()));
    // A pipe would be waited for.
    const TFileKind Kind = Path.empty() ? TFileKind::None : FileTrees::Entry(Path).Kind;
    if (Kind != TFileKind::Folder && Kind != TFileKind::File)
        throw EUsageError(Source + ": no such folder or solution");
    return Links::Resolve(Path);
}

/// The names of actions: those of their projects, with their folders or files where they would be alike.
std::vector<std::string> ActionNames(const TImportModel& Model, const std::vector<std::size_t>& Order)
{
    std::vector<std::string> Names;
    const auto Clashes = [&] {
        std::map<std::string, int> Counts;
        for (const std::string& Name : Names)
            ++Counts[Texts::FoldCase(Name)];
        return Counts;
    };
    for (const std::size_t Place : Order)
        Names.push_back(Model.Projects[Place].Found.Name);
    for (const bool ByFolder : {true, false})
    {
        auto Counts = Clashes();
        for (std::size_t Index = 0; Index < Order.size(); ++Index)
        {
            const TFoundProject& Project = Model.Projects[Order[Index]].Found;
            if (Counts[Texts::FoldCase(Names[Index])] > 1)
                Names[Index] =
                    fmt::format("{} ({})", Project.Name,
                                Model.Relative(ByFolder ? Paths::WithoutTrailing(Project.Folder) : Project.File));
        }
    }
    for (std::string& Name : Names)
        Name.insert(0, "Compile ");
    return Names;
}

std::vector<std::size_t> OrderOf(TImportModel& Model)
{
    std::vector<std::set<std::size_t>> Needs;
    for (const TImportedProject& Project : Model.Projects)
        Needs.push_back(Project.Needs);
    std::vector<std::size_t> Order = BuildOrder(Needs, [&](std::size_t Place, std::size_t Needed) {
        Model.Projects[Place].Notes.push_back(fmt::format("it needs {}, which is built later: they need each other",
                                                          Model.Relative(Model.Projects[Needed].Found.File)));
    });
    std::erase_if(Order, [&](std::size_t Place) { return !Model.Projects[Place].IsIncluded; });
    return Order;
}

/// What is to be said of a project beside what its references ask for.
void AddNotes(const TImportModel& Model, TImportedProject& Project)
{
    if (Project.Found.IsCompact)
        Project.Notes.emplace_back(
            "not enabled: it needs the compact framework, SDKPath and CFResGen tell where it is");
    if (Project.Found.HasBuildEvents)
        Project.Notes.emplace_back("its build events are not run");
    if (Project.Found.LacksImports)
        Project.Notes.emplace_back("it holds no Import, without which its action does not load it");
    const TProjectConfiguration* Configuration = Project.Found.Find(Project.Configuration.With(Model.Configuration));
    if (Configuration && Paths::IsForeign(Configuration->OutputPath))
        Project.Notes.push_back("its output lies on a drive: " + Configuration->OutputPath);
}

/// Of the projects that make the same file the last one has it.
void TellOfSameOutputs(TImportModel& Model, const std::vector<std::size_t>& Order)
{
    const TOutputs Outputs(Model);
    std::unordered_map<std::string, std::size_t> Makers;
    for (const std::size_t Place : Order)
        if (const std::string Path = Outputs.Path(Place); !Path.empty())
            if (const auto [Maker, IsFirst] = Makers.try_emplace(Texts::FoldCase(Path), Place); !IsFirst)
                Model.Projects[Place].Notes.push_back(fmt::format(
                    "it makes {}, as {} does", Path, Model.Relative(Model.Projects[Maker->second].Found.File)));
}

std::vector<TImportedAction> DescribeActions(const TImportModel& Model, const std::vector<std::size_t>& Order,
                                             const std::vector<std::string>& Names)
{
    const TOutputs Outputs(Model);
    std::vector<TImportedAction> Result;
    for (std::size_t Index = 0; Index < Order.size(); ++Index)
    {
        const TImportedProject& Project = Model.Projects[Order[Index]];
        TImportedAction& Action = Result.emplace_back();
        Action.Name = Names[Index];
        Action.Type = ActionType(Project.Found.Kind);
        Action.File = Model.Relative(Project.Found.File);
        Action.Configuration = Project.Configuration.With(Model.Configuration);
        Action.Output = Outputs.Path(Order[Index]);
        for (const std::size_t Needed : Project.Needs)
            Action.Needs.push_back(Model.Relative(Model.Projects[Needed].Found.File));
        std::transform(Project.Notes.begin(), Project.Notes.end(), std::back_inserter(Action.Notes), OneLine);
    }
    return Result;
}

std::string TargetOf(const TImportWishes& Wishes, const std::string& Source)
{
    if (!Wishes.Output.empty())
        return Paths::Expand(Wishes.Output, Files::CurrentFolder());
    return Paths::Join(Files::FolderExists(Source) ? Source : Paths::Folder(Source), DefaultName);
}
} // namespace

TImportResult ImportProjects(const TImportWishes& Wishes)
{
    const std::string Source = ResolveSource(Wishes.Source);
    const bool IsFolder = Files::FolderExists(Source);
    TImportResult Result;
    Result.File = TargetOf(Wishes, Source);
    if (!Wishes.Replaces && !Files::Find(Result.File).empty())
        throw EUsageError(Result.File + ": is there already; --force replaces it, --output FILE names another file");
    TImportModel Model;
    // Names are relative to the folder in which the file really lies.
    const std::string Folder = Links::Resolve(Paths::Folder(Result.File));
    Model.BaseFolder = Paths::WithTrailing(Folder.empty() ? Paths::Folder(Result.File) : Folder);
    TFileTree Tree;
    TGatherer Gatherer(Model, Tree);
    if (IsFolder)
        Gatherer.GatherFolder(Source);
    else
        Gatherer.GatherSolution(Source);
    for (const auto& [Unread, Reason] : Tree.Unreadable())
        Model.Notes.push_back({Unread, Reason});

    ChooseConfigurations(Model, Wishes.Configuration);
    const std::vector<std::size_t> Order = OrderOf(Model);
    if (Order.empty() && Model.Notes.empty())
        throw EUsageError(Source + ": there is no project to build");
    for (const std::size_t Place : Order)
        AddNotes(Model, Model.Projects[Place]);
    TellOfSameOutputs(Model, Order);
    const std::vector<std::string> Names = ActionNames(Model, Order);
    Result.Text = WriteProject(Model, IsFolder ? Paths::FileName(Source) : Paths::BareName(Source), Order, Names);
    Result.Configuration = Model.Configuration;
    Result.Actions = DescribeActions(Model, Order, Names);
    for (const TSolution& Solution : Model.Solutions)
        Result.Solutions.push_back(Model.Relative(Solution.File));
    for (const TImportNote& Note : Model.Notes)
        Result.Notes.push_back(OneLine(Model.Relative(Note.Subject) + ": " + Note.Text));
    return Result;
}
