#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// The projects, solutions and libraries that lie below some folders.
class TFileTree
{
public:
    /// Looks through a folder with those in it, once. Links to folders are not followed, nor folders whose names begin
    /// with a dot, nor those of a web server's notes.
    void Walk(const std::string& Folder);

    /// Sorted, absolute.
    [[nodiscard]] const std::set<std::string>& Projects() const { return FProjects; }
    [[nodiscard]] const std::set<std::string>& Solutions() const { return FSolutions; }
    /// The folders, each with a delimiter at its end, that hold a library of this name, ignoring case.
    [[nodiscard]] const std::vector<std::string>& FoldersOf(const std::string& Library) const;
    /// The folders that could not be read, with the reasons.
    [[nodiscard]] const std::map<std::string, std::string>& Unreadable() const { return FUnreadable; }

    /// Whether a file is there, ignoring case. Each folder is read once; ask when everything was walked.
    [[nodiscard]] bool HasFile(const std::string& Folder, const std::string& Path);

private:
    using TNames = std::vector<std::string>;
    /// What lies in all folders whose names differ but in case. Names are folded and sorted.
    struct TListing
    {
        TNames Files;
        TNames Folders;         ///< whose listings are not known
        bool IsComplete = true; ///< it could be read
    };
    /// A folder as it was read.
    struct TFolder
    {
        TListing Listing;
        TNames Walked; ///< folders in it
        TNames Known;  ///< files that are kept by their names
        std::string Failure;
    };
    [[nodiscard]] static TFolder ReadFolder(const std::string& Folder);
    void AddFolder(const std::string& Folder, TFolder Read);
    void AddFile(const std::string& Folder, const std::string& Name);
    [[nodiscard]] const TListing& Listing(const std::string& Place);
    [[nodiscard]] const TListing& FindListing(const std::string& Place);
    [[nodiscard]] bool CanExist(const std::string& Place) const;

    std::set<std::string> FWalked;
    std::set<std::string> FProjects;
    std::set<std::string> FSolutions;
    std::unordered_map<std::string, std::vector<std::string>> FLibraries;
    std::map<std::string, std::string> FUnreadable;
    std::unordered_map<std::string, TListing> FListings;      ///< by folded paths
    std::unordered_map<std::string, const TListing*> FPlaces; ///< by paths as they were asked for
};
