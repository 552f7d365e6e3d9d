// Solutions of Visual Studio.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A project as a solution names it.
struct TSolutionEntry
{
    std::string Type; ///< GUID of the kind of project
    std::string Name;
    std::string Path; ///< as it stands there, or a URL
    std::string Guid;

    [[nodiscard]] bool IsFolder() const; ///< one that groups projects in the solution alone
    [[nodiscard]] bool IsUrl() const;
};

/// A solution. GUIDs are in the form of PlainGuid.
struct TSolution
{
    std::string File;   ///< absolute
    std::string Folder; ///< with a delimiter at the end
    std::vector<TSolutionEntry> Entries{};
    std::vector<std::string> Configurations{};
    /// By a project's GUID and the solution's configuration in lower case: the configuration of the project.
    std::map<std::pair<std::string, std::string>, std::string> Mapping{};
    std::map<std::string, std::vector<std::string>> Dependencies{}; ///< GUIDs of projects that are built before

    /// The configuration of a project that is built with one of the solution; empty if nothing says so.
    [[nodiscard]] std::string Mapped(const std::string& Guid, std::string_view Configuration) const;
};

/// Reads a solution of any format. Throws EHostFileError for what is none, EFileError.
[[nodiscard]] TSolution ReadSolution(const std::string& File);
