// Puts a project together from its file and the files that this includes.
#pragma once

#include "runtime/Project.h"
#include "runtime/projects/ProjectReader.h"

#include <string>
#include <vector>

/// Loads one project.
class TProjectLoader
{
public:
    /// Throws EHostFileError with the findings of all files.
    [[nodiscard]] static TProject Load(const std::string& FileName, std::string Text);

private:
    void Add(const std::string& FileName, const std::string& Path, std::string Text);
    void AddIncluded(const TProjectInclude& Include, const std::string& FileName, TFileFindings& Findings);
    void Merge(TProject Part, bool IsProjectFile);
    void Collect(const std::vector<THostFinding>& Findings);

    TProject FProject;
    std::vector<std::string> FOpen; ///< the files whose includes are being read, the innermost last
    std::vector<THostFinding> FFindings;
};
