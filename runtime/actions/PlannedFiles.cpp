#include "runtime/actions/PlannedFiles.h"

#include "platform/FileTrees.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "runtime/Runtime.h"
#include "runtime/actions/RunContext.h"
#include "runtime/services/DiskFiles.h"

#include <algorithm>
#include <limits>
#include <set>
#include <stdexcept>
#include <utility>

namespace
{
std::string Normal(std::string_view Path)
{
    return Paths::WithoutTrailing(Paths::Normalise(Path));
}

std::string Absolute(std::string_view Path)
{
    return Paths::WithoutTrailing(Paths::Expand(Path, Files::CurrentFolder()));
}

void Say(const std::string& Text)
{
    if (TRunContext* Running = TQXRuntime::RunningAction())
        Running->SendMessage(Text);
}
} // namespace

std::string TPlannedFiles::Key(std::string_view Path)
{
    return Texts::FoldCase(FileTrees::Resolve(Path));
}

std::string TPlannedFiles::LinkKey(std::string_view Path)
{
    const std::string Full = Absolute(Path);
    return Paths::WithTrailing(Key(Paths::Folder(Full))) + Texts::FoldCase(Paths::FileName(Full));
}

const TPlannedFiles::TEntry* TPlannedFiles::Lookup(std::string_view Path) const
{
    const auto Found = FEntries.empty() || Path.empty() ? FEntries.end() : FEntries.find(Key(Path));
    return Found == FEntries.end() ? nullptr : &Found->second;
}

std::string TPlannedFiles::Find(std::string_view Path) const
{
    const TEntry* Entry = Lookup(Path);
    if (!Entry)
        return Files::Find(Path);
    if (Entry->State == TState::Gone)
        return {};
    const std::string Found = Spelling(Paths::Folder(Normal(Path))) + Entry->Name;
    return Paths::IsDelimiter(Path.back()) ? Paths::WithTrailing(Found) : Found;
}

std::string TPlannedFiles::Spelling(std::string_view Path) const
{
    if (std::string Found = Find(Path); !Found.empty() || Path.empty())
        return Found;
    const std::string Given = Normal(Path);
    const std::string Folder = Paths::Folder(Given);
    if (Folder.empty() || Folder == Given)
        return Paths::Normalise(Path);
    const std::string Result = Spelling(Folder) + Paths::FileName(Given);
    return Paths::IsDelimiter(Path.back()) ? Paths::WithTrailing(Result) : Result;
}

bool TPlannedFiles::FileExists(std::string_view Path) const
{
    const TEntry* Entry = Lookup(Path);
    return Entry ? Entry->State == TState::File : Files::FileExists(Path);
}

bool TPlannedFiles::FolderExists(std::string_view Path) const
{
    const TEntry* Entry = Lookup(Path);
    return Entry ? Entry->State == TState::Folder : Files::FolderExists(Path);
}

std::vector<std::string> TPlannedFiles::FileNames(std::string_view Folder, std::string_view Mask) const
{
    std::vector<std::string> Names = Files::Enumerate(Folder, Mask, Files::TEntryKind::Files);
    std::erase_if(Names, [&](const std::string& Name) { return !FileExists(Paths::Join(Folder, Name)); });
    const std::string Parent = Key(Folder);
    for (const auto& [Path, Entry] : FEntries)
        if (Entry.State == TState::File && Entry.Folder == Parent && Files::MatchesMask(Entry.Name, Mask))
            Names.push_back(Entry.Name);
    std::sort(Names.begin(), Names.end());
    Names.erase(std::unique(Names.begin(), Names.end()), Names.end());
    return Names;
}

std::string TPlannedFiles::Read(std::string_view Path) const
{
    const TEntry* Entry = Lookup(Path);
    if (!Entry)
        return Files::Read(Path);
    if (Entry->State == TState::File && Entry->Bytes)
        return *Entry->Bytes;
    if (Entry->State == TState::File && !Entry->Source.empty())
        return Files::Read(Entry->Source);
    throw EFileError(std::string(Path), Entry->State == TState::File ? "a dry run does not make what is in it"
                                                                     : "there is no such file in this dry run");
}

TPlannedFiles::TEntry& TPlannedFiles::Plan(std::string_view Path, TState State)
{
    const std::string Name = Paths::FileName(Paths::WithoutTrailing(Spelling(Path)));
    TEntry& Entry = FEntries[Key(Path)];
    Entry = {State, Key(Paths::Folder(Absolute(Path))), Name, {}, {}};
    return Entry;
}

bool TPlannedFiles::HasRoom(std::string_view Path) const
{
    return !FolderExists(Path) && FolderExists(Paths::Folder(Absolute(Path)));
}

bool TPlannedFiles::Write(std::string_view Path, std::string_view Bytes)
{
    if (!HasRoom(Path))
        return false;
    Say("Would write " + Spelling(Path));
    Plan(Path, TState::File).Bytes = Bytes;
    return true;
}

bool TPlannedFiles::Copy(std::string_view From, std::string_view To)
{
    if (!FileExists(From) || !HasRoom(To))
        return false;
    Say("Would copy " + Find(From) + " to " + Spelling(To));
    const TEntry* Original = Lookup(From);
    auto Bytes = Original ? Original->Bytes : std::nullopt;
    std::string Source = Original ? Original->Source : Absolute(Files::Find(From));
    TEntry& Entry = Plan(To, TState::File);
    Entry.Bytes = std::move(Bytes);
    Entry.Source = std::move(Source);
    return true;
}

bool TPlannedFiles::Delete(std::string_view Path)
{
    if (FolderExists(Path))
        return false;
    if (!FileExists(Path))
        return true;
    Say("Would delete " + Find(Path));
    Plan(Path, TState::Gone);
    return true;
}

bool TPlannedFiles::PlanFolders(const std::string& Path)
{
    if (FolderExists(Path))
        return true;
    const std::string Parent = Paths::WithoutTrailing(Paths::Folder(Path));
    if (FileExists(Path) || Parent == Path || !PlanFolders(Parent))
        return false;
    Plan(Path, TState::Folder);
    return true;
}

bool TPlannedFiles::ForceFolders(std::string_view Path)
{
    if (Path.empty() || FolderExists(Path))
        return !Path.empty();
    const std::string Name = Paths::WithoutTrailing(Spelling(Path));
    if (!PlanFolders(Absolute(Path)))
        return false;
    Say("Would make the folder " + Name);
    return true;
}

void TPlannedFiles::WillMake(std::string_view Path, std::optional<std::string> Bytes)
{
    Plan(Path, TState::File).Bytes = std::move(Bytes);
}

TQXFileEntry TPlannedFiles::PlannedEntry(const TEntry& Planned)
{
    TQXFileEntry Result;
    Result.Name = Planned.Name;
    Result.Kind = Planned.State == TState::File     ? TQXFileKind::File
                  : Planned.State == TState::Folder ? TQXFileKind::Folder
                                                    : TQXFileKind::None;
    Result.Changed = std::numeric_limits<std::int64_t>::max(); // newer than whatever is there
    return Result;
}

TQXFileEntry TPlannedFiles::Entry(std::string_view Path) const
{
    if (const auto Link = FEntries.find(LinkKey(Path)); Link != FEntries.end())
        return PlannedEntry(Link->second);
    TQXFileEntry Result = DiskFiles().Entry(Path);
    const TEntry* Planned = Lookup(Path);
    if (!Planned)
        return Result;
    if (!Result.IsLink)
        return PlannedEntry(*Planned);
    Result.Kind = PlannedEntry(*Planned).Kind;
    return Result;
}

std::vector<TQXFileEntry> TPlannedFiles::Entries(std::string_view Folder) const
{
    const std::string Parent = Key(Folder.empty() ? "." : Folder);
    const std::string Below = Paths::WithTrailing(Parent);
    std::set<std::string, std::less<>> Planned;
    std::vector<TQXFileEntry> Result;
    for (auto Item = FEntries.lower_bound(Below); Item != FEntries.end() && Item->first.starts_with(Below); ++Item)
        if (const TEntry& Entry = Item->second; Entry.Folder == Parent)
        {
            Planned.insert(Texts::FoldCase(Entry.Name));
            if (Entry.State != TState::Gone)
                Result.push_back(PlannedEntry(Entry));
        }
    for (TQXFileEntry& Entry : DiskFiles().Entries(Folder))
        if (!Planned.contains(Texts::FoldCase(Entry.Name)))
            Result.push_back(std::move(Entry));
    std::sort(Result.begin(), Result.end(), [](const auto& Left, const auto& Right) { return Left.Name < Right.Name; });
    return Result;
}

std::string TPlannedFiles::Resolve(std::string_view Path) const
{
    return DiskFiles().Resolve(Path);
}

void TPlannedFiles::ReadPieces(std::string_view Path, const std::function<void(std::string_view Bytes)>& Use) const
{
    if (Lookup(Path))
        Use(Read(Path));
    else
        DiskFiles().ReadPieces(Path, Use);
}

void TPlannedFiles::Duplicate(std::string_view From, std::string_view To)
{
    CheckPlace(To);
    if (!FileExists(From))
        throw EFileError(std::string(From), "There is no such file");
    if (!Copy(From, To))
        throw EFileError(std::string(To), "There is no room for such a file");
}

void TPlannedFiles::Remove(std::string_view Path)
{
    const TQXFileEntry There = Entry(Path);
    if (There.Kind == TQXFileKind::None && !There.IsLink)
        return;
    const bool IsFolder = There.Kind == TQXFileKind::Folder && !There.IsLink;
    if (IsFolder && !Entries(Path).empty())
        throw EFileError(std::string(Path), "The folder is not empty");
    Say((IsFolder ? "Would delete the folder " : "Would delete ") + Spelling(Path));
    FEntries[LinkKey(Path)] = {TState::Gone, Key(Paths::Folder(Absolute(Path))), There.Name, {}, {}};
}

std::unique_ptr<IQXNewFile> TPlannedFiles::Replace(std::string_view Path)
{
    throw EFileError(std::string(Path), "A dry run writes no file");
}
