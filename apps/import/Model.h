// What an import works with: projects and solutions as they were found, and what was concluded from them.
#pragma once

#include "apps/import/ProjectFile.h"
#include "apps/import/SolutionFile.h"

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// A configuration's name as an action names it: as it stands, or with the variable Config in it.
struct TConfigurationText
{
    std::string Before{};
    bool HasVariable = false;
    std::string After{};

    /// The name when the variable has this value.
    [[nodiscard]] std::string With(std::string_view Value) const;
    /// As a host expression.
    [[nodiscard]] std::string Expression() const;
};

/// A reference with what answers it: a project, a folder with the library, or nothing.
struct TAnsweredReference
{
    const TProjectReference* Reference = nullptr;
    std::optional<std::size_t> Project{};
    std::string LibraryFolder{};
};

struct TImportedProject
{
    TFoundProject Found;
    std::vector<std::size_t> Solutions{}; ///< that name it
    bool IsIncluded = false;
    bool HasAppConfig = false;
    std::vector<std::string> Notes{};
    std::vector<TAnsweredReference> References{}; ///< without those that need no answer
    std::set<std::size_t> Needs{};                ///< projects that are built before
    TConfigurationText Configuration{};
};

/// A project, solution or folder with what is said of it.
struct TImportNote
{
    std::string Subject;
    std::string Text;
};

struct TImportModel
{
    std::string BaseFolder; ///< of the file that is written, with a delimiter at the end
    std::vector<TSolution> Solutions{};
    std::vector<std::vector<std::optional<std::size_t>>> Entries{}; ///< the projects of their entries
    std::vector<TImportedProject> Projects{};                       ///< by their paths
    std::vector<TImportNote> Notes{};                               ///< of what has no action
    std::string Configuration{};                                    ///< the variable's value
    std::vector<std::string> UsualConfigurations{}; ///< values that the variable can be expected to take

    /// A path as the written file names it: relative, with "/".
    [[nodiscard]] std::string Relative(const std::string& Path) const;
};

/// A path between two folders, with "/".
[[nodiscard]] std::string RelativePath(const std::string& Path, const std::string& Folder);
/// A text as one line of valid UTF-8, whatever names from outside hold.
[[nodiscard]] std::string OneLine(std::string_view Text);
/// A text that no host expression is in.
[[nodiscard]] std::string EscapeExpression(std::string_view Text);
