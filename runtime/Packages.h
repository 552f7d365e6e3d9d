#pragma once

#include <string>
#include <vector>

class TQXRuntime;

/// Loads the packages that the user names, in that order. Throws EHostFileError for the first that cannot be loaded.
void LoadNamedPackages(const std::vector<std::string>& Files, bool DesignTime);
/// Loads every package in the package folder, the .NET package first, the others by name. One that cannot be loaded or
/// registered is left out, and the runtime warns of it.
void LoadInstalledPackages(TQXRuntime& Runtime, bool DesignTime);
