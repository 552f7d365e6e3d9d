#include "runtime/Runtime.h"

#include "runtime/scripting/ScriptEngine.h"
#include "runtime/services/ActionServices.h"
#include "runtime/services/ConsoleDesignServices.h"
#include "runtime/services/OptionsServices.h"
#include "runtime/services/ScriptingServices.h"

#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace
{
std::vector<TQXRuntime*>& Installed()
{
    static std::vector<TQXRuntime*> Runtimes;
    return Runtimes;
}
} // namespace

struct TQXRuntime::TImpl
{
    std::function<TOptionsFile()> OptionsSource;
    std::function<std::unique_ptr<IRegistry>()> RegistrySource;
    std::function<void()> PackageSource;
    std::function<std::unique_ptr<IScriptEngine>()> ScriptEngineSource;

    std::optional<TOptionsFile> OptionsFile;
    std::unique_ptr<IRegistry> RegistryKeys;
    std::unique_ptr<IQXDotNetInfo> DotNet;
    std::unique_ptr<IScriptEngine> Engine;

    TConsoleDesignServices ConsoleDesign;
    IQXDesignApplicationServices* Design = &ConsoleDesign;
    TActionServices Actions{[this] { LoadPackage(); }};
    TOptionsServices Options{[this] { LoadPackage(); }, [this]() -> TOptionsFile& { return File(); }};
    TScriptingServices Scripting;

    std::optional<EHostFileError> FileError;
    std::vector<THostFinding> Warnings;
    TRunContext* RunningAction = nullptr;

    /// What Source gives; keeps the first error.
    template <typename TSource> auto Load(TSource Source)
    try
    {
        return Source();
    }
    catch (const EHostFileError& Error)
    {
        if (!FileError)
            FileError = Error;
        throw;
    }

    /// The source is gone before it runs: what it registers looks things up itself. A package that is there in part
    /// stays an error for all who look it up.
    void LoadPackage()
    {
        Load([this] {
            if (PackageSource)
                std::exchange(PackageSource, nullptr)();
            if (!Actions.RegistrationFailure().empty())
                throw EHostFileError({.Message = Actions.RegistrationFailure()});
        });
    }

    TOptionsFile& File()
    {
        if (!OptionsFile)
            OptionsFile = OptionsSource ? Load(OptionsSource) : TOptionsFile();
        return *OptionsFile;
    }

    const IRegistry& Registry()
    {
        if (!RegistryKeys)
            RegistryKeys = RegistrySource ? Load(RegistrySource) : EmptyRegistry();
        return *RegistryKeys;
    }
};

TQXRuntime::TQXRuntime() : FImpl(std::make_unique<TImpl>())
{
    Installed().push_back(this);
}

TQXRuntime::~TQXRuntime()
{
    std::erase(Installed(), this);
}

TQXRuntime& TQXRuntime::Current()
{
    if (Installed().empty())
        throw std::logic_error("No runtime is installed");
    return *Installed().back();
}

void TQXRuntime::SetOptionsSource(std::function<TOptionsFile()> Source)
{
    FImpl->OptionsSource = std::move(Source);
}

void TQXRuntime::SetRegistrySource(std::function<std::unique_ptr<IRegistry>()> Source)
{
    FImpl->RegistrySource = std::move(Source);
}

void TQXRuntime::SetPackageSource(std::function<void()> Source)
{
    FImpl->PackageSource = std::move(Source);
}

void TQXRuntime::SetScriptEngineSource(std::function<std::unique_ptr<IScriptEngine>()> Source)
{
    FImpl->ScriptEngineSource = std::move(Source);
}

void TQXRuntime::SetDotNetInfo(std::unique_ptr<IQXDotNetInfo> Info)
{
    FImpl->DotNet = std::move(Info);
}

const IQXDotNetInfo* TQXRuntime::DotNetInfo() const
{
    return FImpl->DotNet.get();
}

void TQXRuntime::SetDesignServices(IQXDesignApplicationServices* Services)
{
    FImpl->Design = Services ? Services : &FImpl->ConsoleDesign;
}

TOptionsFile& TQXRuntime::Options()
{
    return FImpl->File();
}

const IRegistry& TQXRuntime::Registry()
{
    return FImpl->Registry();
}

IQXActionServices& TQXRuntime::ActionServices()
{
    return FImpl->Actions;
}

IQXOptionsServices& TQXRuntime::OptionsServices()
{
    return FImpl->Options;
}

TScriptingServices& TQXRuntime::ScriptingServices()
{
    return FImpl->Scripting;
}

IScriptEngine* TQXRuntime::ScriptEngine()
{
    if (!FImpl->Engine && FImpl->ScriptEngineSource)
        FImpl->Engine = FImpl->ScriptEngineSource();
    return FImpl->Engine.get();
}

IQXDesignApplicationServices& TQXRuntime::DesignServices()
{
    return *FImpl->Design;
}

const EHostFileError* TQXRuntime::FileError() const
{
    return FImpl->FileError ? &*FImpl->FileError : nullptr;
}

TRunContext* TQXRuntime::RunningAction()
{
    return Installed().empty() ? nullptr : Installed().back()->FImpl->RunningAction;
}

TRunContext* TQXRuntime::SetRunningAction(TRunContext* Action)
{
    return std::exchange(FImpl->RunningAction, Action);
}

std::string TQXRuntime::AddPackage(const std::function<void()>& Register)
{
    const auto Actions = FImpl->Actions.Registered();
    const auto Options = FImpl->Options.Registered();
    const TScriptingServices Scripting = FImpl->Scripting;
    std::string Reason;
    try
    {
        Register();
        Reason = FImpl->Actions.RegistrationFailure();
    }
    catch (const std::exception& Error)
    {
        Reason = Error.what();
    }
    if (!Reason.empty())
    {
        FImpl->Actions.Restore(Actions);
        FImpl->Options.Restore(Options);
        FImpl->Scripting = Scripting;
    }
    return Reason;
}

void TQXRuntime::AddWarning(THostFinding Warning)
{
    FImpl->Warnings.push_back(std::move(Warning));
}

std::vector<THostFinding> TQXRuntime::TakeWarnings()
{
    return std::exchange(FImpl->Warnings, {});
}

void TQXRuntime::StoreOptions(const TQXOptionsRegistration& Registration)
{
    FImpl->Options.Store(Registration);
}

IQXActionServices& QXActionServices()
{
    return TQXRuntime::Current().ActionServices();
}

IQXOptionsServices& QXOptionsServices()
{
    return TQXRuntime::Current().OptionsServices();
}

IQXScriptingServices& QXScriptingServices()
{
    return TQXRuntime::Current().ScriptingServices();
}

IQXDesignApplicationServices& QXDesignApplicationServices()
{
    return TQXRuntime::Current().DesignServices();
}

const IRegistry& QXRegistry()
{
    return TQXRuntime::Current().Registry();
}
