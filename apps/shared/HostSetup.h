#pragma once

#include "runtime/Runtime.h"

#include <string>
#include <vector>

/// What every program of ours lets its user name. File names are as the user wrote them.
struct THostFiles
{
    std::string OptionsFile{}; ///< empty: the default
    std::string RegistryFile{};
    std::vector<std::string> PackageFiles{}; ///< empty: those beside the program
};

/// Whether a program shows pages, and so wants them registered.
enum class TPages { None, Registered };
/// Whether an options file that is named may be missing: what stores an option makes it.
enum class TNamedOptions { MustExist, MayBeMissing };

/// The runtime with the options, registry and package that the command line asks for. Nothing is read before it is
/// needed; only whether a registry file that the command line names is there is looked at right away.
class THostSetup
{
public:
    /// Throws EHostFileError.
    explicit THostSetup(const THostFiles& Named, TNamedOptions Options = TNamedOptions::MustExist,
                        TPages Pages = TPages::None);
    [[nodiscard]] TQXRuntime& Runtime() { return FRuntime; }

private:
    [[nodiscard]] std::string RegistryFile(const std::string& Named);

    TQXRuntime FRuntime;
};
