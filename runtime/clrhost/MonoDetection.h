#pragma once

#include "runtime/clrhost/DotNetVersions.h"

#include <string>
#include <vector>

/// The folders below which Mono may be installed: those to which a `mono` in PATH belongs, then the usual ones.
[[nodiscard]] std::vector<std::string> MonoPrefixes();
/// The profiles of the first of these installations, as framework and SDK at once. Their tool folders are made when
/// they are first asked for.
[[nodiscard]] TDotNetVersionList DetectMono(const std::vector<std::string>& Prefixes);
