#pragma once

#include "apps/quexley/Arguments.h"
#include "runtime/Runtime.h"

#include <exception>

/// The runtime with the options, registry and package that the command line asks for. Nothing is read before it is
/// needed; only whether a registry file that the command line names is there is looked at right away.
class THostSetup
{
public:
    /// Throws EHostFileError.
    explicit THostSetup(const TArguments& Arguments);
    [[nodiscard]] TQXRuntime& Runtime() { return FRuntime; }
    /// Throws the EHostFileError of a file that was needed and could not be read: a package that catches it takes it
    /// for a failure of its own step.
    void CheckFiles() const;

private:
    template <typename TSource> auto Remember(TSource Source);
    [[nodiscard]] std::string RegistryFile(const std::string& Named);

    TQXRuntime FRuntime;
    std::exception_ptr FFailure;
};
