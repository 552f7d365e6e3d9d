#pragma once

#include "apps/quexley/Arguments.h"
#include "runtime/Runtime.h"

#include <string>

/// The runtime with the options, registry and package that the command line asks for. Nothing is read before it is
/// needed; only whether a registry file that the command line names is there is looked at right away.
class THostSetup
{
public:
    /// Throws EHostFileError.
    explicit THostSetup(const TArguments& Arguments);
    [[nodiscard]] TQXRuntime& Runtime() { return FRuntime; }

private:
    [[nodiscard]] std::string RegistryFile(const std::string& Named);

    TQXRuntime FRuntime;
};
