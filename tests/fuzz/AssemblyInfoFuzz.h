#pragma once

#include "tests/fuzz/FuzzTarget.h"

#include <string_view>

/// Lets one updater of assembly attributes work on made-up files and throws std::runtime_error if it does not keep what
/// it promises for any text. The first byte of Input chooses the kind of the first file, the second one what is changed
/// and how; the rest are up to three files, parted by the byte 0x1C.
void CheckAssemblyInfo(std::string_view Input);
inline const TFuzzTarget AssemblyInfoTarget("assemblyinfo", CheckAssemblyInfo);
