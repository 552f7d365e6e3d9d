// Look-ups of .NET assemblies and type libraries in the registry, and names of assemblies and resources.
#pragma once

#include "platform/Registry.h"

#include <string>
#include <string_view>

/// The path registered for a type library, with a resource index behind it if it has one; empty if there is none.
[[nodiscard]] std::string FindTypLib(std::string_view Guid, int Major, int Minor, int Lcid);
/// The folder of the global assembly cache, or empty. A registered one is given as it stands.
[[nodiscard]] std::string GetGACFolder();
/// The folder registered for a key of the form HIVE\NAME (the hive counts for nothing), or empty.
[[nodiscard]] std::string FindAssemblyKeyFolder(std::string_view Key);
/// The path of the first installed assembly that holds Name in its path, ignoring case, or empty: the key has a
/// subkey for each, named after its path with "|" for "\".
[[nodiscard]] std::string FindAssemblyPath(std::string_view Name, TRegistryRoot Root, std::string_view Key);
/// A library's name with ".dll", unless it holds that anywhere.
[[nodiscard]] std::string WithLibraryExtension(const std::string& Name);
/// A path below a folder with full stops for delimiters, as resources are named.
[[nodiscard]] std::string DottedName(const std::string& Path, const std::string& Folder);
