// Look-ups of .NET assemblies in the registry.
#pragma once

#include <string>
#include <string_view>

/// The folder registered for a key of the form HIVE\NAME (the hive counts for nothing), or empty.
[[nodiscard]] std::string FindAssemblyKeyFolder(std::string_view Key);
/// A library's name with ".dll", unless it holds that anywhere.
[[nodiscard]] std::string WithLibraryExtension(const std::string& Name);
