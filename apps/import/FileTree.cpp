#include "apps/import/FileTree.h"

#include "apps/import/ProjectFile.h"
#include "platform/FileTrees.h"
#include "platform/Files.h"
#include "platform/Parallel.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <algorithm>

namespace
{
/// Puts names, folded, between those that are sorted.
void AddFolded(const std::vector<std::string>& Names, std::vector<std::string>& Folded)
{
    Folded.reserve(Folded.size() + Names.size());
    for (const std::string& Name : Names)
        Folded.push_back(Texts::FoldCase(Name));
    std::sort(Folded.begin(), Folded.end());
}

bool Contains(const std::vector<std::string>& Folded, std::string_view Name)
{
    return std::binary_search(Folded.begin(), Folded.end(), Texts::FoldCase(Name));
}

bool HasExtension(std::string_view Name, std::string_view Extension)
{
    return Name.size() >= Extension.size() && Texts::Same(Name.substr(Name.size() - Extension.size()), Extension);
}

bool IsLibraryName(std::string_view Name)
{
    return HasExtension(Name, ".dll") || HasExtension(Name, ".exe");
}

/// Folders that begin with a dot, and those in which a web server kept notes under the names of all files.
bool IsPassedOver(std::string_view Folder)
{
    return Folder.starts_with('.') || Texts::Same(Folder, "_vti_cnf");
}

bool IsSolutionName(std::string_view Name)
{
    return HasExtension(Name, ".sln");
}
} // namespace

void TFileTree::Walk(const std::string& Folder)
{
    std::vector<std::string> Level = {Paths::WithTrailing(Folder)};
    while (!Level.empty())
    {
        std::erase_if(Level, [this](const std::string& Place) { return !FWalked.insert(Place).second; });
        std::vector<TFolder> Read(Level.size());
        ForEachAtOnce(Level.size(), [&](std::size_t Index) { Read[Index] = ReadFolder(Level[Index]); });
        std::vector<std::string> Below;
        for (std::size_t Index = 0; Index < Level.size(); ++Index)
        {
            for (const std::string& Name : Read[Index].Walked)
                Below.push_back(Paths::WithTrailing(Level[Index] + Name));
            AddFolder(Level[Index], std::move(Read[Index]));
        }
        Level = std::move(Below);
    }
}

TFileTree::TFolder TFileTree::ReadFolder(const std::string& Folder)
try
{
    TFolder Result;
    TFolderNames Names = FileTrees::Names(Folder);
    AddFolded(Names.Files, Result.Listing.Files);
    for (std::string& Name : Names.Files)
        if (IsLibraryName(Name) || IsSolutionName(Name) || IsProjectName(Name))
            Result.Known.push_back(std::move(Name));
    for (std::string& Name : Names.Folders)
        (IsPassedOver(Name) ? Names.LinkedFolders : Result.Walked).push_back(std::move(Name));
    AddFolded(Names.LinkedFolders, Result.Listing.Folders);
    return Result;
}
catch (const EFileError& Error)
{
    TFolder Result;
    Result.Listing.IsComplete = false;
    Result.Failure = Error.Reason;
    return Result;
}

void TFileTree::AddFolder(const std::string& Folder, TFolder Read)
{
    TListing& Listing = FListings[Texts::FoldCase(Folder)];
    Listing.IsComplete = Listing.IsComplete && Read.Listing.IsComplete;
    // Folders whose names differ but in case are rare.
    Listing.Files.swap(Read.Listing.Files);
    Listing.Folders.swap(Read.Listing.Folders);
    if (!Read.Listing.Files.empty() || !Read.Listing.Folders.empty())
    {
        AddFolded(Read.Listing.Files, Listing.Files);
        AddFolded(Read.Listing.Folders, Listing.Folders);
    }
    for (const std::string& Name : Read.Known)
        AddFile(Folder, Name);
    if (!Read.Failure.empty())
        FUnreadable.emplace(Folder, std::move(Read.Failure));
}

void TFileTree::AddFile(const std::string& Folder, const std::string& Name)
{
    if (IsLibraryName(Name))
        FLibraries[Texts::Lower(Name)].push_back(Folder);
    else if (IsSolutionName(Name))
        FSolutions.insert(Folder + Name);
    else
        FProjects.insert(Folder + Name);
}

const std::vector<std::string>& TFileTree::FoldersOf(const std::string& Library) const
{
    static const std::vector<std::string> None;
    const auto Found = FLibraries.find(Texts::Lower(Library));
    return Found == FLibraries.end() ? None : Found->second;
}

bool TFileTree::HasFile(const std::string& Folder, const std::string& Path)
{
    const std::string Below = Paths::Folder(Path);
    const TListing& Known = Below.empty() ? Listing(Folder) : Listing(Paths::Expand(Below, Folder));
    // What cannot be listed may still be opened by its name.
    return Contains(Known.Files, std::string_view(Path).substr(Below.size())) ||
           (!Known.IsComplete && Files::FileExists(Paths::Expand(Path, Folder)));
}

const TFileTree::TListing& TFileTree::Listing(const std::string& Place)
{
    const auto [Found, IsNew] = FPlaces.try_emplace(Place);
    if (IsNew)
        Found->second = &FindListing(Place);
    return *Found->second;
}

const TFileTree::TListing& TFileTree::FindListing(const std::string& Place)
{
    const auto [Found, IsNew] = FListings.try_emplace(Texts::FoldCase(Place));
    TListing& Listing = Found->second;
    if (!IsNew)
        return Listing;
    Listing.IsComplete = !CanExist(Place);
    if (Listing.IsComplete)
        return Listing;
    try
    {
        const std::string OnDisk = Files::Find(Place);
        const TFolderNames Names = OnDisk.empty() ? TFolderNames() : FileTrees::Names(OnDisk);
        AddFolded(Names.Files, Listing.Files);
        AddFolded(Names.Folders, Listing.Folders);
        AddFolded(Names.LinkedFolders, Listing.Folders);
        Listing.IsComplete = true;
    }
    catch (const EFileError&)
    {
        // HasFile asks for each file.
    }
    return Listing;
}

/// Whether what is known of the folders above does not rule out that one is there.
bool TFileTree::CanExist(const std::string& Place) const
{
    std::string Name = Paths::WithoutTrailing(Place);
    for (std::string Folder = Paths::Folder(Name); Folder != Name && !Folder.empty(); Folder = Paths::Folder(Name))
    {
        if (const auto Above = FListings.find(Texts::FoldCase(Folder)); Above != FListings.end())
            return !Above->second.IsComplete || Contains(Above->second.Folders, Paths::FileName(Name));
        Name = Paths::WithoutTrailing(Folder);
    }
    return true;
}
