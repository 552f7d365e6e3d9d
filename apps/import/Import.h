// Makes a project file for what lies in a folder or stands in a solution of Visual Studio.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct TImportWishes
{
    std::string Source;        ///< a folder or a solution
    std::string Configuration; ///< empty: the usual one
    /// The file that is going to be written; empty: quexley.toml in the folder or beside the solution.
    std::string Output;
    bool Replaces = false; ///< a file that is there
};

/// A project with its action. Files are named relative to the written file's folder.
struct TImportedAction
{
    std::string Name;
    std::string Type;
    std::string File;
    std::string Configuration;
    std::string Output;             ///< empty if it is not known
    std::vector<std::string> Needs; ///< files of the projects that are built before
    std::vector<std::string> Notes;
};

struct TImportResult
{
    std::string File; ///< absolute; nothing is written yet
    std::string Text;
    std::string Configuration;
    std::vector<std::string> Solutions;
    std::vector<TImportedAction> Actions; ///< in the order of building
    std::vector<std::string> Notes;       ///< of what has no action
};

/// Reads what is there and gives the text of a project that builds it. Throws EUsageError where there is no such folder
/// or solution, where the file is in the way, where nothing is to build and for a configuration that nothing has,
/// EHostFileError for a file that is no solution, EFileError.
[[nodiscard]] TImportResult ImportProjects(const TImportWishes& Wishes);
