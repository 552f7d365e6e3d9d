#include "apps/import/Gather.h"

#include "apps/import/FrameworkNames.h"
#include "platform/Files.h"
#include "platform/Links.h"
#include "platform/Parallel.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "runtime/HostErrors.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <tuple>

namespace
{
constexpr std::size_t MaximumNames = 5; ///< in a note

/// The names, as many as a line can take.
std::string SomeOf(const std::vector<std::string>& Names)
{
    const std::size_t Shown = std::min(Names.size(), MaximumNames);
    std::string Result =
        fmt::format("{}", fmt::join(Names.begin(), Names.begin() + static_cast<std::ptrdiff_t>(Shown), ", "));
    return Names.size() == Shown ? Result : fmt::format("{} and {} more", Result, Names.size() - Shown);
}

/// Whether an entry names a project that does not lie below its solution.
bool LeadsOut(const TSolutionEntry& Entry)
{
    return !Entry.IsUrl() && IsProjectName(Entry.Path) &&
           (Paths::IsAbsolute(Entry.Path) || Paths::Normalise(Entry.Path).starts_with(".."));
}

/// Whether the kind of action looks for libraries in folders that it is told.
bool TakesLibraryFolders(TProjectKind Kind)
{
    return Kind != TProjectKind::CSharpBuilder && Kind != TProjectKind::MSBuild;
}
} // namespace

void TGatherer::GatherFolder(const std::string& Folder)
{
    FTree.Walk(Folder);
    for (const std::string& File : FTree.Solutions())
        try
        {
            AddSolution(File);
        }
        catch (const EHostFileError& Error)
        {
            Note(File, Error.Findings().front().Message);
        }
        catch (const EFileError& Error)
        {
            Note(File, Error.Reason);
        }
    WalkNamedFolders();
    ReadProjects();
    for (const auto& [File, Reason] : FLeftOut)
        Note(File, "left out: " + Reason);
    FindEntries();
    const std::string Root = Paths::WithTrailing(Folder);
    for (TImportedProject& Project : FModel.Projects)
        Project.IsIncluded = !Project.Solutions.empty() || Project.Found.File.starts_with(Root);
    AnswerReferences();
}

void TGatherer::GatherSolution(const std::string& File)
{
    FIsSolution = true;
    AddSolution(File);
    FTree.Walk(Paths::Folder(File));
    WalkNamedFolders();
    ReadProjects();
    FindEntries();
    for (TImportedProject& Project : FModel.Projects)
        Project.IsIncluded = !Project.Solutions.empty();
    AnswerReferences();
}

void TGatherer::AddSolution(const std::string& File)
{
    FModel.Solutions.push_back(ReadSolution(File));
}

void TGatherer::WalkNamedFolders()
{
    std::set<std::string> Folders;
    for (const TSolution& Solution : FModel.Solutions)
        for (const TSolutionEntry& Entry : Solution.Entries)
            if (LeadsOut(Entry))
                if (const std::string Path = Links::Resolve(Files::Find(Paths::Expand(Entry.Path, Solution.Folder)));
                    !Path.empty())
                    Folders.insert(Paths::Folder(Path));
    for (const std::string& Folder : Folders)
        FTree.Walk(Folder);
}

void TGatherer::ReadProjects()
{
    const std::vector<std::string> Names(FTree.Projects().begin(), FTree.Projects().end());
    std::vector<TReading> Readings(Names.size());
    ForEachAtOnce(Names.size(), [&](std::size_t Index) { Readings[Index] = Read(Names[Index]); });
    for (std::size_t Index = 0; Index < Names.size(); ++Index)
        AddProject(Names[Index], std::move(Readings[Index]));
    FIndex.emplace(FModel);
}

TGatherer::TReading TGatherer::Read(const std::string& File)
try
{
    if (!Texts::IsValidUtf8(File))
        return {{}, "its path is not UTF-8, as project files are"};
    return {ReadProject(File), ""};
}
catch (const EProjectError& Error)
{
    return {{}, Error.what()};
}
catch (const EFileError& Error)
{
    return {{}, Error.Reason};
}

void TGatherer::AddProject(const std::string& File, TReading Reading)
{
    TImportedProject Project{.Found = std::move(Reading.Project)};
    if (Reading.Reason.empty())
        Reading.Reason = LeaveOutReason(Project);
    if (Reading.Reason.empty())
        FModel.Projects.push_back(std::move(Project));
    else
        FLeftOut.emplace(File, std::move(Reading.Reason));
}

std::vector<std::string> TGatherer::MissingOf(const TFoundProject& Project, const std::vector<std::string>& Names)
{
    std::vector<std::string> Result;
    std::copy_if(Names.begin(), Names.end(), std::back_inserter(Result),
                 [&](const std::string& Name) { return !FTree.HasFile(Project.Folder, Name); });
    return Result;
}

std::string TGatherer::LeaveOutReason(TImportedProject& Project)
{
    const TFoundProject& Found = Project.Found;
    const bool FindsSources = Found.Kind == TProjectKind::MSBuild && Found.Sources.empty();
    if (FindsSources)
        return {};
    if (Found.Sources.empty())
        return "it has no sources to compile";
    Project.HasAppConfig = FTree.HasFile(Found.Folder, "App.config");
    std::vector<std::string> Missing = MissingOf(Found, Found.Sources);
    if (Missing.size() == Found.Sources.size())
        return "none of its sources is there";
    const std::vector<std::string> Resources = MissingOf(Found, Found.Resources);
    Missing.insert(Missing.end(), Resources.begin(), Resources.end());
    if (!Missing.empty())
        Project.Notes.push_back("not there: " + SomeOf(Missing));
    return {};
}

void TGatherer::FindEntries()
{
    for (std::size_t Solution = 0; Solution < FModel.Solutions.size(); ++Solution)
    {
        auto& Places = FModel.Entries.emplace_back();
        for (const TSolutionEntry& Entry : FModel.Solutions[Solution].Entries)
        {
            const auto Place = FindEntry(FModel.Solutions[Solution], Entry);
            Places.push_back(Place);
            if (Place &&
                (FModel.Projects[*Place].Solutions.empty() || FModel.Projects[*Place].Solutions.back() != Solution))
                FModel.Projects[*Place].Solutions.push_back(Solution);
        }
    }
    FIndex->AddEntries();
}

TProjectIndex::TPlace TGatherer::FindEntry(const TSolution& Solution, const TSolutionEntry& Entry)
{
    if (Entry.IsFolder())
        return {};
    const std::string Path = Entry.IsUrl() ? "" : Paths::Expand(Entry.Path, Solution.Folder);
    TProjectIndex::TPlace Place;
    if (!Path.empty())
        Place = FIndex->ByFile(Path);
    const std::string OnDisk = Place || Path.empty() ? "" : Links::Resolve(Files::Find(Path));
    if (!OnDisk.empty())
        Place = FIndex->ByFile(OnDisk);
    if (!Place && OnDisk.empty())
        Place = FIndex->Lost(Solution, Entry);
    if (!Place)
        TellOfEntry(Solution, Entry, OnDisk);
    return Place;
}

/// OnDisk: the entry's file, empty if there is none.
void TGatherer::TellOfEntry(const TSolution& Solution, const TSolutionEntry& Entry, const std::string& OnDisk)
{
    const std::string What = fmt::format("\"{}\" ({})", Entry.Name, Entry.Path);
    if (const auto Known = FLeftOut.find(OnDisk); Known != FLeftOut.end())
    {
        if (FIsSolution)
            Note(OnDisk, "left out: " + Known->second);
    }
    else if (!IsProjectName(Entry.Path) && !Entry.IsUrl())
        Note(Solution.File, fmt::format("{} was left out: no action compiles it", What));
    else if (OnDisk.empty())
        Note(Solution.File, fmt::format("{} is not there", What));
}

void TGatherer::AnswerReferences()
{
    std::vector<std::size_t> Open;
    for (std::size_t Place = FModel.Projects.size(); Place-- > 0;)
        if (FModel.Projects[Place].IsIncluded)
            Open.push_back(Place);
    while (!Open.empty())
    {
        const std::size_t Place = Open.back();
        Open.pop_back();
        AnswerProject(Place);
        for (const std::size_t Needed : FModel.Projects[Place].Needs)
            if (!FModel.Projects[Needed].IsIncluded)
            {
                FModel.Projects[Needed].IsIncluded = true;
                Open.push_back(Needed);
            }
    }
    for (std::size_t Solution = 0; Solution < FModel.Solutions.size(); ++Solution)
        AddDependencies(Solution);
}

void TGatherer::AddDependencies(std::size_t Solution)
{
    for (const auto& [Guid, Others] : FModel.Solutions[Solution].Dependencies)
    {
        const auto From = FIndex->InSolution(Solution, Guid);
        for (const std::string& Other : Others)
            if (const auto Needed = FIndex->InSolution(Solution, Other); From && Needed && From != Needed)
                FModel.Projects[*From].Needs.insert(*Needed);
    }
}

void TGatherer::AnswerProject(std::size_t From)
{
    for (const TProjectReference& Reference : FModel.Projects[From].Found.References)
        switch (Reference.Kind)
        {
        case TReferenceKind::Project:
            AnswerProjectReference(From, Reference);
            break;
        case TReferenceKind::Assembly:
            AnswerAssembly(From, Reference);
            break;
        case TReferenceKind::Com:
            FModel.Projects[From].Notes.push_back(
                fmt::format("the COM reference \"{}\" needs its type library in the registry", Reference.Name));
            break;
        }
}

void TGatherer::AnswerProjectReference(std::size_t From, const TProjectReference& Reference)
{
    TImportedProject& Project = FModel.Projects[From];
    TAnsweredReference Answer{&Reference, FIndex->Referenced(From, Reference), ""};
    if (Answer.Project)
        Project.Needs.insert(*Answer.Project);
    else
        Answer.LibraryFolder = LibraryFolder(From, LibraryFileName(Reference.Name));
    if (!Answer.Project && Answer.LibraryFolder.empty())
        Project.Notes.push_back(fmt::format("the project \"{}\" to which it refers is not there", Reference.Name));
    else
        Project.References.push_back(std::move(Answer));
}

void TGatherer::AnswerAssembly(std::size_t From, const TProjectReference& Reference)
{
    TImportedProject& Project = FModel.Projects[From];
    const std::string FileName =
        LibraryFileName(Reference.Path.empty() ? Reference.Name : Paths::FileName(Reference.Path));
    const bool IsOfFramework = IsFrameworkAssembly(Reference.Name, Project.Found.IsCompact);
    if (IsOfFramework && !FIndex->IsOutput(FileName))
        return;

    const std::string Hint = Reference.Path.empty() ? "" : Paths::Expand(Reference.Path, Project.Found.Folder);
    bool IsHinted = false;
    TAnsweredReference Answer{&Reference, FIndex->ByOutput(From, FileName, Hint, IsHinted), ""};
    if (!IsHinted && (IsOfFramework || (!Hint.empty() && FTree.HasFile("", Hint))))
        return;
    if (Answer.Project)
        Project.Needs.insert(*Answer.Project);
    else if (TakesLibraryFolders(Project.Found.Kind))
        Answer.LibraryFolder = LibraryFolder(From, FileName);
    if (Answer.LibraryFolder.find(',') != std::string::npos)
        return Project.Notes.push_back(
            fmt::format("the folder \"{}\" of \"{}\" cannot be named: commas part the folders of LibLocations",
                        FModel.Relative(Paths::WithoutTrailing(Answer.LibraryFolder)), FileName));
    if (Answer.Project || !Answer.LibraryFolder.empty())
        Project.References.push_back(std::move(Answer));
    else if (Project.Found.Kind != TProjectKind::MSBuild)
        Project.Notes.push_back(fmt::format("the library \"{}\" was found nowhere", FileName));
}

/// The folder of a library for a project: outside of those where outputs lie rather than in them, and near.
std::string TGatherer::LibraryFolder(std::size_t From, const std::string& FileName) const
{
    const std::string& Own = FModel.Projects[From].Found.Folder;
    const auto Rank = [&](const std::string& Folder) {
        const std::string Lower = Texts::Lower(Folder);
        const bool IsOutput = Lower.find("/bin/") != std::string::npos || Lower.find("/obj/") != std::string::npos;
        return std::tuple(IsOutput, FolderDistance(Own, Folder), Folder);
    };
    std::string Result;
    for (const std::string& Folder : FTree.FoldersOf(FileName))
        if (Result.empty() || Rank(Folder) < Rank(Result))
            Result = Folder;
    return Result;
}
