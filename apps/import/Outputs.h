#pragma once

#include "apps/import/Model.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

/// Where projects and actions of a model find what others make. All texts are host expressions.
class TOutputs
{
public:
    explicit TOutputs(const TImportModel& Model) : FModel(Model) {}

    /// The project's output for the model's configuration, as the written file names it; empty if it is not known.
    [[nodiscard]] std::string Path(std::size_t Place) const
    {
        return ForValue(Place, FModel.Configuration, FModel.BaseFolder).value_or("");
    }
    /// The folders in which a project finds the libraries that its references name, relative to its own folder.
    [[nodiscard]] std::vector<std::string> LibraryFolders(std::size_t Place) const;
    /// The script that answers project references; empty if there are none.
    [[nodiscard]] std::string Script(const std::vector<std::size_t>& Order) const;

private:
    /// The output, relative to a folder, for a value of the variable Config.
    [[nodiscard]] std::optional<std::string> ForValue(std::size_t Place, const std::string& Value,
                                                      const std::string& Folder) const;
    /// By values of the variable Config: the output relative to a folder.
    [[nodiscard]] std::vector<std::pair<std::string, std::string>> ByValue(std::size_t Place,
                                                                           const std::string& Folder) const;
    [[nodiscard]] std::string Answer(const TAnsweredReference& Reference) const;
    [[nodiscard]] std::string OutputAnswer(std::size_t Place) const;

    const TImportModel& FModel;
    mutable std::unordered_map<std::size_t, std::string> FAnswers; ///< of projects
};

/// Whether the actions of this kind ask a script for the outputs of projects.
[[nodiscard]] bool AsksScript(TProjectKind Kind);
