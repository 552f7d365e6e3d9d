// What an options file stores that nothing registered knows.
#pragma once

#include "runtime/HostErrors.h"

#include <vector>

class TQXRuntime;

/// Reads the options file and gives its tables and settings that no options object has. The package is loaded only for
/// a file that stores something. Throws EHostFileError.
[[nodiscard]] std::vector<THostFinding> FindUnknownOptions(TQXRuntime& Runtime);
