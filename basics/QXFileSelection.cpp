#include "QXFileSelection.h"

#include "QXPathTexts.h"
#include "host/QXUtilities.h"

#include <algorithm>
#include <utility>

namespace
{
bool IsMask(const std::string& Part)
{
    return Part.find_first_of("*?[") != std::string::npos;
}

bool IsThere(const TQXFileEntry& Entry)
{
    return Entry.Kind != TQXFileKind::None || Entry.IsLink;
}
} // namespace

TQXFileSelection::TQXFileSelection(TQXSelectionRules Rules, std::function<void(const std::string&)> Tell)
    : FRules(std::move(Rules)), FTell(std::move(Tell))
{}

bool TQXFileSelection::Add(const std::string& Text)
{
    const std::size_t Before = FFiles.size();
    const std::string Path = QXFiles().Spelling(Text);
    if (const TQXFileEntry Entry = QXFiles().Entry(Path); IsThere(Entry))
    {
        AddNamed(Path, Entry);
        return true;
    }
    const std::vector<std::string> Parts = PathParts(Path);
    FBase.clear();
    std::size_t Index = 0;
    // A name that holds the characters of a mask is one if there is no such folder.
    while (Index + 1 < Parts.size() && (!IsMask(Parts[Index]) || QXFiles().FolderExists(JoinPath(FBase, Parts[Index]))))
        FBase = JoinPath(JoinPath(FBase, Parts[Index++]), "");
    if (Index < Parts.size())
        Expand(FBase, Parts, Index);
    return FFiles.size() > Before;
}

void TQXFileSelection::AddNamed(const std::string& Path, const TQXFileEntry& Entry)
{
    if (Entry.Kind == TQXFileKind::Folder && (!Entry.IsLink || FRules.Links != TQXFolderLinks::Keep))
    {
        FBase = JoinPath(Path, "");
        FWalked = {QXFiles().Resolve(Path)};
        TQXFileEntry Folder = Entry;
        Folder.IsLink = false;
        TakeFolder(FBase.substr(0, FBase.size() - 1), Folder);
        return;
    }
    FBase = FolderOfPath(Path);
    Take(Path, Entry);
}

void TQXFileSelection::Expand(const std::string& Folder, const std::vector<std::string>& Parts, std::size_t Index)
{
    const std::string& Part = Parts[Index];
    if (Index + 1 == Parts.size())
    {
        FWalked = {QXFiles().Resolve(Folder.empty() ? "." : Folder)};
        return Match(Folder, Part);
    }
    if (const std::string Named = QXFiles().Find(JoinPath(Folder, Part)); !Named.empty())
        return Expand(JoinPath(Named, ""), Parts, Index + 1);
    if (!IsMask(Part))
        return;
    if (Part == "**")
        Expand(Folder, Parts, Index + 1);
    for (const TQXFileEntry& Entry : QXFiles().Entries(Folder))
    {
        const std::string Below = JoinPath(Folder + Entry.Name, "");
        if (Entry.Kind != TQXFileKind::Folder || !IsWalked(Entry))
            continue;
        if (Part == "**" && !Entry.IsLink)
            Expand(Below, Parts, Index);
        else if (Part != "**" && MatchesFileMask(Entry.Name, Part))
            Expand(Below, Parts, Index + 1);
    }
}

void TQXFileSelection::Match(const std::string& Folder, const std::string& Mask)
{
    ForEachEntry(Folder, [&](const std::string& Path, const TQXFileEntry& Entry) {
        const bool Matches = MatchesFileMask(Entry.Name, Mask);
        if (Entry.Kind != TQXFileKind::Folder)
        {
            if (Matches)
                Take(Path, Entry);
        }
        else if (Matches && FRules.TakeFolders)
            IsWalked(Entry) ? TakeFolder(Path, Entry) : Take(Path, Entry);
        else if (FRules.RecurseMasks && IsWalked(Entry))
            Match(JoinPath(Path, ""), Mask);
    });
}

void TQXFileSelection::TakeFolder(const std::string& Path, const TQXFileEntry& Entry)
{
    ForEachEntry(JoinPath(Path, ""), [&](const std::string& Below, const TQXFileEntry& Inner) {
        if (Inner.Kind == TQXFileKind::Folder && IsWalked(Inner))
        {
            if (FRules.RecurseFolders)
                TakeFolder(Below, Inner);
        }
        else if (Inner.Kind != TQXFileKind::Folder || FRules.TakeFolders)
            Take(Below, Inner);
    });
    if (FRules.TakeFolders)
        Take(Path, Entry);
}

/// A folder behind a link in which the walk stands already is left out: it would have no end.
void TQXFileSelection::ForEachEntry(const std::string& Folder,
                                    const std::function<void(const std::string& Path, const TQXFileEntry& Entry)>& Use)
{
    for (const TQXFileEntry& Entry : QXFiles().Entries(Folder))
    {
        const std::string Path = Folder + Entry.Name;
        if (IsLeftOut(Path, Entry.Name))
            continue;
        const bool IsFollowed = Entry.IsLink && Entry.Kind == TQXFileKind::Folder && IsWalked(Entry);
        if (!IsFollowed)
            Use(Path, Entry);
        else if (LeadsBack(Path))
            FTell("Left out " + Path + " : it leads back to a folder in which it lies");
        else
        {
            FWalked.push_back(QXFiles().Resolve(Path));
            Use(Path, Entry);
            FWalked.pop_back();
        }
    }
}

/// Where a path leads costs more than a look at its name.
bool TQXFileSelection::IsLeftOut(const std::string& Path, const std::string& Name) const
{
    return !FRules.LeaveOut.empty() && LowerCase(FRules.LeaveOut).ends_with(LowerCase(Name)) &&
           QXFiles().Resolve(Path) == FRules.LeaveOut;
}

bool TQXFileSelection::IsWalked(const TQXFileEntry& Entry) const
{
    return !Entry.IsLink || FRules.Links == TQXFolderLinks::Follow;
}

bool TQXFileSelection::LeadsBack(const std::string& Path) const
{
    const std::string Target = QXFiles().Resolve(Path);
    const std::string Folder = FolderOfPath(Path);
    const std::string Here = QXFiles().Resolve(Folder.empty() ? "." : Folder);
    return IsInFolder(Here, Target) || std::any_of(FWalked.begin(), FWalked.end(), [&](const std::string& Walked) {
               return IsInFolder(Walked, Target);
           });
}
