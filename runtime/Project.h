#pragma once

#include "host/QXAction.h"
#include "runtime/HostErrors.h"
#include "runtime/Variables.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

enum class TOnFailure { Stop, Continue };

/// One `[[action]]` of a project with its object, whose properties and scripts are restored.
struct TProjectAction
{
    int Index = 0; ///< from 1, the position in the file
    std::string Type;
    std::string Name;
    bool Enabled = true;
    TOnFailure OnFailure = TOnFailure::Stop;
    int TimeoutSeconds = 0; ///< 0: no limit
    std::unique_ptr<TCustomQXAction> Object;
    std::string File{}; ///< in which its table stands, as the user named it
    int Line = 0;       ///< and where; 0 in a project that no file holds
    int Column = 0;
    std::string Group{};     ///< empty: none
    std::string When{};      ///< a test that can be read; empty: it always runs
    std::string Arguments{}; ///< behind those of the action's tool
};

/// What a project takes from the files that it includes. Of what is there twice the last counts.
struct TIncludedParts
{
    std::vector<std::string> Secrets;
    TVariables::TPairs Variables;
    TVariables::TPairs Scripts;
};

/// A file of a project as it was read.
struct TProjectFile
{
    std::string Name; ///< as the user named it
    std::string Path;
    std::string Text;
    std::size_t FirstAction = 0; ///< the place of its first action among all actions
};

/// A project as its file holds it, with the actions of the files that it includes before its own.
class TProject
{
public:
    /// Reads a project file, or the quexley.toml of a folder; of the nearest folder upwards for an empty path. Throws
    /// EHostFileError with every finding.
    [[nodiscard]] static TProject Load(const std::string& Path);
    /// The same from a text, under the name of a file that need not exist.
    [[nodiscard]] static TProject Parse(const std::string& File, std::string_view Text);

    /// The text of the file with what changed since it was loaded: properties in order of declaration, those at
    /// their default left out, everything else byte for byte.
    [[nodiscard]] std::string ToText() const;
    /// Writes it, and the included files of which actions changed. Throws EFileError.
    void Save();

    /// The project file and those that it includes.
    [[nodiscard]] std::vector<std::string> FileNames() const;
    /// Of all files, in the order in which the later one counts.
    [[nodiscard]] TVariables::TPairs AllVariables() const;
    [[nodiscard]] std::vector<std::string> AllSecrets() const;
    /// Those and the host's own, for expressions.
    [[nodiscard]] TVariables ExpressionVariables() const;
    /// Gives the project's scripts to the actions that declare them and have none of their own.
    void GiveScripts();
    /// Whether the action stands in an included file.
    [[nodiscard]] bool IsIncluded(const TProjectAction& Action) const;
    /// Where a line of the value of a key stands, as far as it is known; an empty message. Without an action it is a
    /// key of a table of the project, with one of a table of the action or of the action's own. What the action has not
    /// may be the project's.
    [[nodiscard]] THostFinding PlaceOf(const TProjectAction* Action, std::string_view Table, std::string_view Key,
                                       int Line = 0) const;

    std::string File;   ///< absolute
    std::string Folder; ///< without trailing delimiter
    std::string Name;
    std::vector<std::string> Includes; ///< as the project file names them
    std::vector<std::string> Secrets;
    bool FollowsIDE = false; ///< where an action's own way and that of the IDE differ, the IDE's holds
    TVariables::TPairs Variables;
    TVariables::TPairs Scripts; ///< for every action that declares such a script and has none of its own
    TIncludedParts Included;
    std::vector<TProjectAction> Actions;

private:
    friend class TProjectLoader;
    [[nodiscard]] const TProjectFile& OwnerOf(const TProjectAction& Action) const;
    void CountActions();
    [[nodiscard]] std::optional<THostFinding> PlaceIn(const TProjectFile& In, const TProjectAction* Action,
                                                      std::string_view Table, std::string_view Key, int Line) const;

    std::vector<TProjectFile> FFiles; ///< the project file first
};
