#pragma once

#include "runtime/ProjectRunner.h"

#include <string_view>
#include <vector>

/// The actions of a project that a run's options select, in the order of the file; disabled ones are left out.
/// Begin is the place in the project's list before which none is selected. Throws EUsageError for an action or group
/// that does not exist.
[[nodiscard]] std::vector<TProjectAction*> SelectActions(TProject& Project, const TRunOptions& Options,
                                                         std::size_t Begin);

/// The place in the project's list of the first action of this number (from 1) or name. Throws EUsageError.
[[nodiscard]] std::size_t PlaceOfAction(const TProject& Project, std::string_view NumberOrName);
