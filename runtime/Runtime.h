#pragma once

#include "host/QXDotNetInfo.h"
#include "host/QXServices.h"
#include "platform/Registry.h"
#include "runtime/HostErrors.h"
#include "runtime/OptionsFile.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class IScriptEngine;
class TRunContext;
class TScriptingServices;

/// The host behind the services that packages ask for. One is installed at a time; tests install their own
/// with a registry, options and .NET versions made up for them.
class TQXRuntime
{
public:
    TQXRuntime();
    ~TQXRuntime();
    TQXRuntime(const TQXRuntime&) = delete;
    TQXRuntime& operator=(const TQXRuntime&) = delete;

    /// The installed runtime: the one constructed last that is still alive. Throws std::logic_error if there is none.
    [[nodiscard]] static TQXRuntime& Current();

    /// What the runtime loads only when it is first needed. Each may throw EHostFileError; FileError keeps it.
    void SetOptionsSource(std::function<TOptionsFile()> Source);
    void SetRegistrySource(std::function<std::unique_ptr<IRegistry>()> Source);
    /// Called once, when a class is first looked up: registers the package's classes.
    void SetPackageSource(std::function<void()> Source);
    /// .NET versions in place of the detected ones.
    void SetDotNetInfo(std::unique_ptr<IQXDotNetInfo> Info);
    [[nodiscard]] const IQXDotNetInfo* DotNetInfo() const;
    /// Dialogs and design-time expansion of a program that has them.
    void SetDesignServices(IQXDesignApplicationServices* Services);
    /// What makes the script engine when the first script runs. Without a source there is none.
    void SetScriptEngineSource(std::function<std::unique_ptr<IScriptEngine>()> Source);

    [[nodiscard]] TOptionsFile& Options();
    [[nodiscard]] const IRegistry& Registry();
    [[nodiscard]] IQXActionServices& ActionServices();
    [[nodiscard]] IQXOptionsServices& OptionsServices();
    [[nodiscard]] TScriptingServices& ScriptingServices();
    /// The script engine, or null.
    [[nodiscard]] IScriptEngine* ScriptEngine();
    [[nodiscard]] IQXDesignApplicationServices& DesignServices();
    /// The first error of a source, or null. Packages may have caught it for a failure of a step of their own, so the
    /// program asks here after each step that could have needed a file.
    [[nodiscard]] const EHostFileError* FileError() const;

    /// The action that the installed runtime runs at the moment, or null. Everything that acts on behalf of an action,
    /// be it the action, a script or a process, finds the host's side of it here.
    [[nodiscard]] static TRunContext* RunningAction();
    /// Puts another one in its place, and gives the one before.
    TRunContext* SetRunningAction(TRunContext* Action);

    /// Has a package register what it has. Gives the reason why it could not, or nothing: then nothing of it stays.
    [[nodiscard]] std::string AddPackage(const std::function<void()>& Register);
    /// What the user is to be told of the host's affairs that do not stop it.
    void AddWarning(THostFinding Warning);
    /// Those that were added, once.
    [[nodiscard]] std::vector<THostFinding> TakeWarnings();

    /// Writes the settings of an options object to the options file's text, without saving the file.
    void StoreOptions(const TQXOptionsRegistration& Registration);

private:
    struct TImpl;
    std::unique_ptr<TImpl> FImpl;
};
