// How a project's document becomes a project.
#pragma once

#include "runtime/Project.h"
#include "runtime/projects/FileFindings.h"
#include "runtime/projects/TomlDocument.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

/// The host's own keys, in the order in which they are written.
inline constexpr std::array<std::string_view, 3> ProjectKeys{"name", "secrets", "follow_ide"};
inline constexpr std::array<std::string_view, 9> ActionKeys{"type",  "name", "enabled",   "on_failure", "timeout",
                                                            "group", "when", "arguments", "scripts"};
/// The values of `on_failure`, in the order of TOnFailure.
inline constexpr std::array<std::string_view, 2> OnFailureNames{"stop", "continue"};

/// Another file that a file of a project asks for.
struct TProjectInclude
{
    std::string Name;
    TTomlPosition Position;
};

/// What one file of a project holds itself, its actions restored and counted from 1.
struct TProjectPart
{
    TProject Content;
    std::vector<TProjectInclude> Includes;
};

/// Adds every finding.
[[nodiscard]] TProjectPart ReadProjectPart(const TTomlDocument& Document, const std::string& FileName,
                                           TFileFindings& Findings);
/// The name of a project whose file gives none.
[[nodiscard]] std::string DefaultProjectName(const TProject& Project);
