#pragma once

#include "host/QXAction.h"
#include "runtime/Variables.h"

#include <memory>
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
};

/// A project as its file holds it.
class TProject
{
public:
    /// Reads a project file, or the quexley.toml of a folder. Throws EHostFileError with every finding.
    [[nodiscard]] static TProject Load(const std::string& Path);
    /// The same from a text, under the name of a file that need not exist.
    [[nodiscard]] static TProject Parse(const std::string& File, std::string_view Text);

    /// The text of the file with what changed since it was loaded: properties in order of declaration, those at
    /// their default left out, everything else byte for byte.
    [[nodiscard]] std::string ToText() const;
    /// Writes it. Throws EFileError.
    void Save();

    std::string File;   ///< absolute
    std::string Folder; ///< without trailing delimiter
    std::string Name;
    std::vector<std::string> Secrets;
    TVariables::TPairs Variables;
    std::vector<TProjectAction> Actions;

private:
    std::string FText;
};
