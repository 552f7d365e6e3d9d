// Which variables the texts of a project use.
#pragma once

#include "runtime/Project.h"

#include <vector>

/// Throws EUsageError for a variable that is set on the command line although neither the project nor the host knows it
/// and no text of the project uses it. Known are the variables without those of the command line.
void CheckSettings(const TProject& Project, const TVariables& Known, const TVariables::TPairs& Settings);

/// The variables that actions and other variables use and that no one defines, each where it is first used.
[[nodiscard]] std::vector<THostFinding> FindUndefined(const TProject& Project, const TVariables& Known);
