// Where assemblies without a folder are looked for.
#pragma once

#include "package/compiler/QXProjectLoader.h"

#include <string>
#include <string_view>
#include <vector>

/// The folders in which the compiler looks for a bare name: the framework's, then the library locations.
[[nodiscard]] std::vector<std::string> LibraryFolders(const TQXManagedCompilerAction& Action, const TProjectLoad& Load);
/// The first file of this name in the folders, in its spelling; empty if there is none.
[[nodiscard]] std::string FindIn(const std::vector<std::string>& Folders, std::string_view Name);
