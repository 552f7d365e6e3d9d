#pragma once

#include "runtime/Project.h"

#include <string>

/// The text of a project that was read from Text, with what changed since.
[[nodiscard]] std::string WriteProject(const TProject& Project, const std::string& Text);
