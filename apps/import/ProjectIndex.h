#pragma once

#include "apps/import/Model.h"

#include <map>
#include <unordered_map>

/// Finds the projects of a model by what others call them. Where several are meant, it is one of the same solution,
/// else of the same format, else the nearest.
class TProjectIndex
{
public:
    using TPlace = std::optional<std::size_t>;

    explicit TProjectIndex(const TImportModel& Model);

    [[nodiscard]] TPlace ByFile(const std::string& Path) const;
    /// The project that a reference of another means.
    [[nodiscard]] TPlace Referenced(std::size_t From, const TProjectReference& Reference) const;
    /// The project that makes a file of this name for another one; where the hint names an output, the one it is of.
    [[nodiscard]] TPlace ByOutput(std::size_t From, const std::string& FileName, const std::string& Hint,
                                  bool& IsHinted) const;
    [[nodiscard]] bool IsOutput(const std::string& FileName) const;
    /// The project of a solution's entry whose path leads nowhere.
    [[nodiscard]] TPlace Lost(const TSolution& Solution, const TSolutionEntry& Entry) const;
    /// The project that a solution calls by this GUID.
    [[nodiscard]] TPlace InSolution(std::size_t Solution, const std::string& Guid) const;
    /// Has the solutions' entries, which are found with its help.
    void AddEntries();

private:
    using TPlaces = std::vector<std::size_t>;
    using TNames = std::unordered_map<std::string, TPlaces>;
    [[nodiscard]] static const TPlaces& Find(const TNames& Names, const std::string& Name);
    [[nodiscard]] TPlace Best(std::size_t From, const TPlaces& Places, const std::string& Name) const;
    [[nodiscard]] bool ShareSolution(std::size_t Left, std::size_t Right) const;
    [[nodiscard]] TPlace OwnReferenced(std::size_t From, const std::string& Guid) const;

    const TImportModel& FModel;
    std::unordered_map<std::string, std::size_t> FFiles; ///< in lower case
    TNames FGuids;
    TNames FNames;   ///< in lower case
    TNames FOutputs; ///< in lower case
    std::vector<std::unordered_map<std::string, std::size_t>> FSolutionGuids;
};

/// How many folders lie between two.
[[nodiscard]] std::size_t FolderDistance(std::string_view Left, std::string_view Right);
