#pragma once

#include "runtime/OptionsFile.h"
#include "runtime/projects/TomlDocument.h"

#include <string>
#include <vector>

/// What an options file holds for the host itself.
struct THostSettings
{
    THostOptions Host;
    bool DetectDotNet = true;
    std::vector<TConfiguredDotNet> DotNetVersions;
};

/// Checks the whole file and reads the host's tables. Relative paths are joined to the file's folder. Throws
/// EHostFileError with every finding.
[[nodiscard]] THostSettings ReadHostSettings(const TTomlDocument& Document, const std::string& FileName);
