#include "apps/import/ProjectIndex.h"

#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <algorithm>
#include <tuple>

std::size_t FolderDistance(std::string_view Left, std::string_view Right)
{
    const auto Parted = std::mismatch(Left.begin(), Left.end(), Right.begin(), Right.end());
    const auto IsDelimiter = [](char Character) { return Paths::IsDelimiter(Character); };
    // The part in which they differ may have begun alike.
    return static_cast<std::size_t>(std::count_if(Parted.first, Left.end(), IsDelimiter) +
                                    std::count_if(Parted.second, Right.end(), IsDelimiter));
}

TProjectIndex::TProjectIndex(const TImportModel& Model) : FModel(Model)
{
    for (std::size_t Place = 0; Place < Model.Projects.size(); ++Place)
    {
        const TFoundProject& Project = Model.Projects[Place].Found;
        FFiles.emplace(Texts::Lower(Project.File), Place);
        FNames[Texts::Lower(Project.Name)].push_back(Place);
        FOutputs[Texts::Lower(Project.OutputName)].push_back(Place);
        if (!Project.Guid.empty())
            FGuids[Project.Guid].push_back(Place);
    }
}

void TProjectIndex::AddEntries()
{
    FSolutionGuids.resize(FModel.Solutions.size());
    for (std::size_t Solution = 0; Solution < FModel.Solutions.size(); ++Solution)
        for (std::size_t Entry = 0; Entry < FModel.Entries[Solution].size(); ++Entry)
            if (const TPlace Place = FModel.Entries[Solution][Entry])
                FSolutionGuids[Solution].emplace(FModel.Solutions[Solution].Entries[Entry].Guid, *Place);
}

const TProjectIndex::TPlaces& TProjectIndex::Find(const TNames& Names, const std::string& Name)
{
    static const TPlaces None;
    const auto Found = Names.find(Name);
    return Found == Names.end() ? None : Found->second;
}

TProjectIndex::TPlace TProjectIndex::ByFile(const std::string& Path) const
{
    auto Found = FFiles.find(Texts::Lower(Path));
    if (Found == FFiles.end())
        Found = FFiles.find(Texts::Lower(Files::Find(Path)));
    return Found == FFiles.end() ? TPlace() : TPlace(Found->second);
}

bool TProjectIndex::ShareSolution(std::size_t Left, std::size_t Right) const
{
    const auto& Others = FModel.Projects[Right].Solutions;
    const auto& Own = FModel.Projects[Left].Solutions;
    return std::any_of(Own.begin(), Own.end(), [&](std::size_t Solution) {
        return std::find(Others.begin(), Others.end(), Solution) != Others.end();
    });
}

TProjectIndex::TPlace TProjectIndex::Best(std::size_t From, const TPlaces& Places, const std::string& Name) const
{
    const TFoundProject& Asking = FModel.Projects[From].Found;
    const auto Rank = [&](std::size_t Place) {
        const TFoundProject& Project = FModel.Projects[Place].Found;
        const bool IsOtherFormat = (Project.Kind == TProjectKind::MSBuild) != (Asking.Kind == TProjectKind::MSBuild);
        return std::tuple(!ShareSolution(From, Place), IsOtherFormat || Project.IsCompact != Asking.IsCompact,
                          FolderDistance(Asking.Folder, Project.Folder), !Texts::Same(Project.Name, Name), Place);
    };
    TPlace Result;
    for (const std::size_t Place : Places)
        if (Place != From && (!Result || Rank(Place) < Rank(*Result)))
            Result = Place;
    return Result;
}

TProjectIndex::TPlace TProjectIndex::InSolution(std::size_t Solution, const std::string& Guid) const
{
    const auto Found = FSolutionGuids[Solution].find(Guid);
    return Found == FSolutionGuids[Solution].end() ? TPlace() : TPlace(Found->second);
}

TProjectIndex::TPlace TProjectIndex::OwnReferenced(std::size_t From, const std::string& Guid) const
{
    for (const std::size_t Solution : FModel.Projects[From].Solutions)
        if (const TPlace Found = InSolution(Solution, Guid); Found && Found != From)
            return Found;
    return {};
}

TProjectIndex::TPlace TProjectIndex::Referenced(std::size_t From, const TProjectReference& Reference) const
{
    if (!Reference.Path.empty())
        return ByFile(Paths::Expand(Reference.Path, FModel.Projects[From].Found.Folder));
    if (const TPlace Own = OwnReferenced(From, Reference.Guid))
        return Own;
    if (const TPlace Same = Best(From, Find(FGuids, Reference.Guid), Reference.Name))
        return Same;
    return Best(From, Find(FNames, Texts::Lower(Reference.Name)), Reference.Name);
}

bool TProjectIndex::IsOutput(const std::string& FileName) const
{
    return FOutputs.contains(Texts::Lower(FileName));
}

TProjectIndex::TPlace TProjectIndex::ByOutput(std::size_t From, const std::string& FileName, const std::string& Hint,
                                              bool& IsHinted) const
{
    const TPlaces& Places = Find(FOutputs, Texts::Lower(FileName));
    const std::string HintFolder = Texts::Lower(Paths::Folder(Hint));
    for (const std::size_t Place : Places)
        for (const TProjectConfiguration& Configuration : FModel.Projects[Place].Found.Configurations)
        {
            const std::string Output = Paths::Expand(Configuration.OutputPath, FModel.Projects[Place].Found.Folder);
            IsHinted = Place != From && Texts::Lower(Paths::WithTrailing(Output)) == HintFolder;
            if (IsHinted)
                return Place;
        }
    return Best(From, Places, Paths::BareName(FileName));
}

TProjectIndex::TPlace TProjectIndex::Lost(const TSolution& Solution, const TSolutionEntry& Entry) const
{
    const std::string Path = Texts::Replace(Entry.Path, "%20", " ");
    const std::string FileName = Texts::Lower(Paths::FileName(Path));
    const std::string FolderName = Paths::FileName(Paths::WithoutTrailing(Paths::Folder(Path)));
    const auto Rank = [&](std::size_t Place) {
        const TFoundProject& Project = FModel.Projects[Place].Found;
        return std::tuple(Project.Guid != Entry.Guid,
                          !Texts::Same(Paths::FileName(Paths::WithoutTrailing(Project.Folder)), FolderName),
                          FolderDistance(Solution.Folder, Project.Folder), Place);
    };
    TPlace Result;
    for (const std::size_t Place : Find(FNames, Paths::BareName(FileName)))
        if (Texts::Lower(Paths::FileName(FModel.Projects[Place].Found.File)) == FileName &&
            (!Result || Rank(Place) < Rank(*Result)))
            Result = Place;
    // On a web server a project may have another name than in its folder.
    if (!Result && Entry.IsUrl() && Find(FGuids, Entry.Guid).size() == 1)
        Result = Find(FGuids, Entry.Guid).front();
    const bool IsSure = Entry.IsUrl() || (Result && FModel.Projects[*Result].Found.Guid == Entry.Guid);
    return IsSure ? Result : TPlace();
}
