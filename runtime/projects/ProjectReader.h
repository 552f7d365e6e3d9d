// How a project's document becomes a project.
#pragma once

#include "runtime/Project.h"
#include "runtime/projects/TomlDocument.h"

#include <array>
#include <string>
#include <string_view>

/// The host's own keys, in the order in which they are written.
inline constexpr std::array<std::string_view, 2> ProjectKeys{"name", "secrets"};
inline constexpr std::array<std::string_view, 6> ActionKeys{"type",       "name",    "enabled",
                                                            "on_failure", "timeout", "scripts"};
/// The values of `on_failure`, in the order of TOnFailure.
inline constexpr std::array<std::string_view, 2> OnFailureNames{"stop", "continue"};

/// A project with its actions restored. Throws EHostFileError with every finding, under the name FileName.
[[nodiscard]] TProject ReadProject(const TTomlDocument& Document, const std::string& FileName);
/// The name of a project whose file gives none.
[[nodiscard]] std::string DefaultProjectName(const TProject& Project);
