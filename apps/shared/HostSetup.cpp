#include "apps/shared/HostSetup.h"

#include "host/QXUtilities.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Registry.h"
#include "platform/Text.h"
#include "runtime/HostErrors.h"
#include "runtime/Packages.h"
#include "runtime/scripting/DuktapeEngine.h"

#include <memory>
#include <optional>
#include <vector>

namespace
{
/// The path as it counts from the folder in which the user stands: a run has another current folder.
std::string FromHere(const std::string& File)
{
    return File.empty() ? File : Paths::Expand(File, Files::CurrentFolder());
}

/// What the variables of Windows stand for in an expandable string: its folder as the options tell, else the
/// environment.
std::optional<std::string> WindowsVariable(std::string_view Name)
{
    std::string Value;
    if (Texts::Same(Name, "windir") || Texts::Same(Name, "SystemRoot"))
        Value = GetWinDirectory();
    return !Value.empty() || Environment::GetSame(Name, Value) ? std::optional(Value) : std::nullopt;
}

std::unique_ptr<IRegistry> LoadRegistry(const std::string& File)
try
{
    return File.empty() ? EmptyRegistry() : ParseRegistryExport(Files::Read(File), WindowsVariable);
}
catch (const ERegistryError& Error)
{
    throw EHostFileError({.File = File, .Line = Error.Line, .Message = Error.what()});
}
catch (const EFileError& Error)
{
    throw EHostFileError({.File = File, .Message = Error.Reason});
}

} // namespace

THostSetup::THostSetup(const THostFiles& Named, TNamedOptions Options, TPages Pages)
{
    const std::string Registry = FromHere(Named.RegistryFile);
    if (!Registry.empty() && !Files::FileExists(Registry))
        throw EHostFileError({.File = Named.RegistryFile, .Message = "no such file"});
    std::vector<std::string> Packages;
    for (const std::string& Package : Named.PackageFiles)
        Packages.push_back(FromHere(Package));

    const bool MustExist = !Named.OptionsFile.empty() && Options == TNamedOptions::MustExist;
    FRuntime.SetOptionsSource([File = FromHere(Named.OptionsFile), MustExist] {
        return TOptionsFile::Load(File.empty() ? TOptionsFile::DefaultFileName() : File, MustExist);
    });
    FRuntime.SetRegistrySource([this, Registry] { return LoadRegistry(RegistryFile(Registry)); });
    FRuntime.SetPackageSource([this, Packages, Pages] {
        if (Packages.empty())
            LoadInstalledPackages(FRuntime, Pages == TPages::Registered);
        else
            LoadNamedPackages(Packages, Pages == TPages::Registered);
    });
    FRuntime.SetScriptEngineSource([] { return std::make_unique<TDuktapeEngine>(); });
}

/// The file that the command line names, or the one of the options, relative to their own file.
std::string THostSetup::RegistryFile(const std::string& Named)
{
    if (!Named.empty())
        return Named;
    const TOptionsFile& Options = FRuntime.Options();
    const std::string& File = Options.Host().Registry;
    return File.empty() ? File : Paths::Expand(File, Paths::Folder(Options.FileName()));
}
