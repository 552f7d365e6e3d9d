#pragma once

#include "apps/designer/run/RunUpdate.h"

#include <string>
#include <vector>

class TQXRuntime;

/// What validation finds in the text of a project that is to be the content of File. It starts nothing.
[[nodiscard]] std::vector<TProblem> FindProblems(const std::string& File, const std::string& Text);
/// What the host has to tell of its own affairs: packages that are left out, options that it cannot read or that nobody
/// knows.
[[nodiscard]] std::vector<TProblem> FindHostProblems(TQXRuntime& Runtime);
