#pragma once

#include "apps/designer/run/RunUpdate.h"

#include <string>
#include <vector>

/// What validation finds in the text of a project that is to be the content of File. It starts nothing.
[[nodiscard]] std::vector<TProblem> FindProblems(const std::string& File, const std::string& Text);
