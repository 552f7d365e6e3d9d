#include "apps/import/FileTree.h"

#include "apps/import/ProjectFile.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <algorithm>

void TFileTree::Walk(const std::string& Folder)
{
    std::vector<std::string> Open = {Paths::WithTrailing(Folder)};
    while (!Open.empty())
    {
        const std::string Current = std::move(Open.back());
        Open.pop_back();
        if (!FWalked.insert(Current).second)
            continue;
        try
        {
            for (const std::string& Name : Files::Enumerate(Current, "*", Files::TEntryKind::Files))
                AddFile(Current, Name);
            for (const std::string& Name : Files::Enumerate(Current, "*", Files::TEntryKind::OwnFolders))
                if (!Name.starts_with('.'))
                    Open.push_back(Paths::WithTrailing(Current + Name));
        }
        catch (const EFileError& Error)
        {
            FUnreadable.emplace_back(Error.what());
        }
    }
}

void TFileTree::AddFile(const std::string& Folder, const std::string& Name)
{
    const std::size_t Dot = Name.rfind('.');
    const std::string_view Extension = Dot == std::string::npos ? "" : std::string_view(Name).substr(Dot);
    if (Texts::Same(Extension, ".dll") || Texts::Same(Extension, ".exe"))
        FLibraries[Texts::Lower(Name)].push_back(Folder);
    else if (Texts::Same(Extension, ".sln"))
        FSolutions.insert(Folder + Name);
    else if (IsProjectName(Name))
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
    const std::string Name = Path.substr(Below.size());
    // Names beyond ASCII are left to the disk.
    return Listing(Folder, Below).contains(Texts::Lower(Name)) || Files::FileExists(Paths::Expand(Path, Folder));
}

const TFileTree::TNames& TFileTree::Listing(const std::string& Folder, const std::string& Below)
{
    const std::string Place = Paths::IsAbsolute(Below) ? Below : Folder + Below;
    const auto [Found, IsNew] = FListings.try_emplace(Place);
    if (!IsNew)
        return Found->second;
    try
    {
        const std::string OnDisk = Files::Find(Place);
        for (const std::string& Name : Files::Enumerate(OnDisk.empty() ? Place : OnDisk, "*", Files::TEntryKind::Files))
            Found->second.insert(Texts::Lower(Name));
    }
    catch (const EFileError&)
    {
        // What cannot be listed may still be opened by its name: HasFile asks for it.
    }
    return Found->second;
}
