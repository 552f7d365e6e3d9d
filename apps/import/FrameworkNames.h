#pragma once

#include <string_view>

/// Whether an assembly of this name, without extension, comes with the .NET framework, or with that for devices.
[[nodiscard]] bool IsFrameworkAssembly(std::string_view Name, bool IsCompact);
