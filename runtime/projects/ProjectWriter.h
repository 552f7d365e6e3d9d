#pragma once

#include "runtime/Project.h"

#include <string>

/// The text of a file of the project with what changed since it was read. Of an included file that is its actions; the
/// project file also has the actions of which no file is known.
[[nodiscard]] std::string WriteProjectFile(const TProject& Project, const TProjectFile& File, bool IsIncluded);
