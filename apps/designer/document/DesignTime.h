#pragma once

#include "runtime/Project.h"

#include <string>
#include <string_view>

/// Replaces the variables of a text as far as they are known while the project is edited. Throws std::runtime_error
/// with the reason.
[[nodiscard]] std::string ExpandAtDesignTime(const TProject& Project, std::string_view Text);
