// What the tests of project files share.
#pragma once

#include "runtime/Project.h"
#include "runtime/Runtime.h"

#include <string>

/// Everything that a project's file stores, as one text.
[[nodiscard]] std::string Dump(const TProject& Project);
/// An action of a registered class.
[[nodiscard]] TProjectAction NewAction(const std::string& Type, const std::string& Name);
