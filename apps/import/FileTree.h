#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

/// The projects, solutions and libraries that lie below some folders.
class TFileTree
{
public:
    /// Looks through a folder with those in it, once. Links to folders are not followed, nor folders whose names begin
    /// with a dot.
    void Walk(const std::string& Folder);

    /// Sorted, absolute.
    [[nodiscard]] const std::set<std::string>& Projects() const { return FProjects; }
    [[nodiscard]] const std::set<std::string>& Solutions() const { return FSolutions; }
    /// The folders, each with a delimiter at its end, that hold a library of this name, ignoring case.
    [[nodiscard]] const std::vector<std::string>& FoldersOf(const std::string& Library) const;
    /// What could not be read, with the reason.
    [[nodiscard]] const std::vector<std::string>& Unreadable() const { return FUnreadable; }

    /// Whether a file is there, ignoring case. Folders are read once.
    [[nodiscard]] bool HasFile(const std::string& Folder, const std::string& Path);

private:
    using TNames = std::unordered_set<std::string>;
    void AddFile(const std::string& Folder, const std::string& Name);
    [[nodiscard]] const TNames& Listing(const std::string& Folder, const std::string& Below);

    std::set<std::string> FWalked;
    std::set<std::string> FProjects;
    std::set<std::string> FSolutions;
    std::unordered_map<std::string, std::vector<std::string>> FLibraries;
    std::vector<std::string> FUnreadable;
    std::unordered_map<std::string, TNames> FListings;
};
