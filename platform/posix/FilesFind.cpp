#include "platform/Paths.h"
#include "platform/Text.h"
#include "platform/posix/FilesPosix.h"

#include <algorithm>
#include <chrono>
#include <climits>
#include <ctime>
#include <map>
#include <mutex>
#include <system_error>
#include <vector>

namespace
{
/// A folder's names by their folded form, those of one form in byte order.
class TListing
{
public:
    TListing(const std::string& Folder, const struct stat& Status) : FChanged(Since(Status))
    {
        // A change in the same tick of the file system's clock as the reading would not show in the folder's time.
        constexpr std::chrono::milliseconds Tick{20};
        FSettled = std::chrono::system_clock::now().time_since_epoch() - FChanged >= Tick;
        const TFolderHandle Handle = OpenFolder(Folder.empty() ? "." : Folder);
        while (const dirent* Entry = Handle ? ::readdir(Handle.get()) : nullptr)
            FNames.emplace_back(Texts::FoldCase(static_cast<const char*>(Entry->d_name)), Entry->d_name);
        std::sort(FNames.begin(), FNames.end());
    }

    [[nodiscard]] bool IsFresh(const struct stat& Status) const { return FSettled && FChanged == Since(Status); }

    /// The names of the same folded form, the exact one first.
    [[nodiscard]] std::vector<std::string> Matches(std::string_view Name) const
    {
        const std::string Folded = Texts::FoldCase(Name);
        std::vector<std::string> Result;
        for (auto Item = std::lower_bound(FNames.begin(), FNames.end(), std::pair(Folded, std::string()));
             Item != FNames.end() && Item->first == Folded; ++Item)
            Result.push_back(Item->second);
        std::stable_partition(Result.begin(), Result.end(), [Name](const auto& Match) { return Match == Name; });
        return Result;
    }

private:
    /// Unlike the time of modification, that of the status cannot be set back by a program that unpacks files.
    static std::chrono::nanoseconds Since(const struct stat& Status)
    {
        return std::chrono::seconds(Status.st_ctim.tv_sec) + std::chrono::nanoseconds(Status.st_ctim.tv_nsec);
    }

    std::chrono::nanoseconds FChanged;
    bool FSettled = false;
    std::vector<std::pair<std::string, std::string>> FNames;
};

/// The names in a folder that differ from Name at most in case, the exact one first. Remembers listings as long as the
/// folders do not change, so that many names in a large folder cost one reading of it.
std::vector<std::string> MatchingNames(const std::string& Folder, std::string_view Name)
{
    constexpr std::size_t MaximumListings = 64;
    static std::mutex Mutex;
    static std::map<std::pair<dev_t, ino_t>, TListing> Listings;

    struct stat Status = {};
    if (!GetStatus(Folder.empty() ? "." : Folder, Status) || !S_ISDIR(Status.st_mode))
        return {};
    const std::lock_guard Lock(Mutex);
    const std::pair Key(Status.st_dev, Status.st_ino);
    auto Found = Listings.find(Key);
    if (Found != Listings.end() && Found->second.IsFresh(Status))
        return Found->second.Matches(Name);
    if (Found == Listings.end() && Listings.size() == MaximumListings)
        Listings.clear();
    return Listings.insert_or_assign(Key, TListing(Folder, Status)).first->second.Matches(Name);
}

/// A normalised path without trailing delimiter as folder (with its delimiter, or empty) and name.
struct TSplit
{
    explicit TSplit(std::string_view Path)
        : Folder(Path.substr(0, Path.rfind('/') + 1)), Name(Path.substr(Folder.size()))
    {}
    std::string_view Folder;
    std::string_view Name;
};

/// The first spelling of a name that is there in a folder, with Suffix, and what lies there.
std::string FindIn(const std::string& Folder, std::string_view Name, std::string_view Suffix, struct stat& Status)
{
    for (const std::string& Match : MatchingNames(Folder, Name))
        if (std::string Path = (Folder + Match).append(Suffix); GetStatus(Path, Status))
            return Path;
    return {};
}

/// Looks through the spellings of a folder, for checkouts in which one folder of a Windows project is several.
class TFolderSearch
{
public:
    /// Every spelling of a folder that is there. Folders end in their delimiter or are empty, the current one.
    [[nodiscard]] std::vector<std::string> Spellings(std::string_view Folder) const
    {
        if (IsFixed(Folder))
            return {std::string(Folder)};
        std::vector<std::string> Result;
        struct stat Status = {};
        const TSplit Split(Folder.substr(0, Folder.size() - 1));
        for (const std::string& Parent : Spellings(Split.Folder))
            for (const std::string& Name : MatchingNames(Parent, Split.Name))
                if (std::string Path = Parent + Name + '/'; GetStatus(Path, Status))
                    Result.push_back(std::move(Path));
        return Result;
    }

private:
    /// The current folder and those above it stand as they are: what is missing in this tree is not to be taken from
    /// a neighbour whose name differs only in case.
    [[nodiscard]] bool IsFixed(std::string_view Folder) const
    {
        return Folder.empty() || Folder == "/" || Folder.ends_with("../") || FCurrent.starts_with(Folder);
    }

    std::string FCurrent = Paths::WithTrailing(Files::CurrentFolder());
};

/// A normalised path that is not there in its own spelling.
std::string FindIgnoringCase(std::string_view Path, struct stat& Status)
{
    const std::string_view Suffix = Path.ends_with('/') ? "/" : "";
    const TSplit Split(Path.substr(0, Path.size() - Suffix.size()));
    // Mostly the folder is right, and its other spellings need not be looked for.
    std::string Found = FindIn(std::string(Split.Folder), Split.Name, Suffix, Status);
    if (!Found.empty())
        return Found;
    for (const std::string& Folder : TFolderSearch().Spellings(Split.Folder))
    {
        Found = FindIn(Folder, Split.Name, Suffix, Status);
        if (!Found.empty())
            break;
    }
    return Found;
}

bool CanExist(std::string_view Path)
{
    return !Path.empty() && Path.size() < PATH_MAX && Path.find('\0') == std::string_view::npos;
}

/// Finds a path and tells what lies there.
std::string Locate(std::string_view Path, struct stat& Status)
{
    std::string Exact = Paths::Normalise(Path);
    if (!CanExist(Exact))
        return {};
    return GetStatus(Exact, Status) ? Exact : FindIgnoringCase(Exact, Status);
}
} // namespace

EFileError SystemError(const std::string& Path, int Number)
{
    return {Path, std::generic_category().message(Number)};
}

std::string SystemPath(std::string_view Path)
{
    return Path.find('\0') == std::string_view::npos ? Files::Spelling(Path) : std::string();
}

bool GetStatus(const std::string& Path, struct stat& Status)
{
    return ::stat(Path.c_str(), &Status) == 0;
}

std::string Files::Find(std::string_view Path)
{
    struct stat Status = {};
    return Locate(Path, Status);
}

bool Files::FileExists(std::string_view Path)
{
    struct stat Status = {};
    return !Locate(Path, Status).empty() && !S_ISDIR(Status.st_mode);
}

bool Files::FolderExists(std::string_view Path)
{
    struct stat Status = {};
    return !Locate(Path, Status).empty() && S_ISDIR(Status.st_mode);
}

bool Files::IsReadOnly(std::string_view Path)
{
    struct stat Status = {};
    return !Locate(Path, Status).empty() && HasNoWriteBit(Status);
}

std::string Files::Spelling(std::string_view Path)
{
    std::string Exact = Paths::Normalise(Path);
    struct stat Status = {};
    if (!CanExist(Exact) || GetStatus(Exact, Status))
        return Exact;
    // The longest part of the path that is there, and the rest as it is given.
    for (std::size_t End = Exact.size(); End != 0; End = End < 2 ? 0 : Exact.rfind('/', End - 2) + 1)
    {
        const std::string_view Start(Exact.data(), End);
        if (std::string Found = FindIgnoringCase(Start, Status); !Found.empty())
            return Found.append(Exact, End);
    }
    return Exact;
}
