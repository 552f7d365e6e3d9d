#pragma once

#include <string_view>

/// Whether an assembly of this name, without extension, comes with the .NET framework.
[[nodiscard]] bool IsFrameworkAssembly(std::string_view Name);
