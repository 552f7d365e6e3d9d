#include "runtime/Packages.h"

#include "platform/Files.h"
#include "platform/Modules.h"
#include "platform/Paths.h"
#include "runtime/HostErrors.h"
#include "runtime/Runtime.h"

#include <algorithm>

namespace
{
constexpr const char* PackageFolder = "quexley";
constexpr const char* FirstPackage = "QX40DotNetFrameWork";

void LoadPackage(const std::string& File, bool DesignTime)
{
    const TModule Module(File);
    Module.Function<void(bool)>("QXRegister")(DesignTime);
}

std::vector<std::string> InstalledPackages()
try
{
    std::vector<std::string> Result = TModule::FilesBesideProgram(PackageFolder);
    std::stable_partition(Result.begin(), Result.end(),
                          [](const std::string& File) { return Paths::BareName(File) == FirstPackage; });
    return Result;
}
catch (const EFileError& Error)
{
    throw EHostFileError({.File = Error.Path, .Message = Error.Reason});
}
} // namespace

void LoadNamedPackages(const std::vector<std::string>& Files, bool DesignTime)
try
{
    for (const std::string& File : Files)
        LoadPackage(File, DesignTime);
}
catch (const EModuleError& Error)
{
    throw EHostFileError({.Message = Error.what()});
}

void LoadInstalledPackages(TQXRuntime& Runtime, bool DesignTime)
{
    for (const std::string& File : InstalledPackages())
    {
        std::string Reason = Runtime.AddPackage([&] { LoadPackage(File, DesignTime); });
        if (Reason.empty())
            continue;
        if (!Reason.starts_with(File))
            Reason.insert(0, File + ": ");
        Runtime.AddWarning({.Message = Reason + "; this package is left out"});
    }
}
