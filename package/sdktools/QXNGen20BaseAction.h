#pragma once

#include "package/plugin/QXDotNetAction.h"

#include <string>
#include <string_view>

/// Base of the actions that run the native image generator. A derived class names the tool's command and adds what
/// stands behind it.
class TQXNGen20BaseAction : public TQXDotNetAction
{
public:
    TQXNGen20BaseAction() { MinimumSDKVersion = "2.0"; }

    [[nodiscard]] virtual std::string GetNGenCommand() const = 0;

    [[nodiscard]] TQXDotNetToolType GetDotNetToolType() const override { return ttFramework; }
    [[nodiscard]] std::string GetDotNetTool() const override { return "ngen.exe"; }
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) final;
    [[nodiscard]] std::string GetStartingDir(const std::string& /*Exe*/) override { return {}; }
    [[nodiscard]] bool BeforeExecute(ICommandLineBuilder& Builder) override;

    bool Queued = false;
    bool Verbose = false;

protected:
    /// Adds what stands behind the command. Throws std::runtime_error with the reason why not.
    virtual void AddArguments(ICommandLineBuilder& Builder) const = 0;

    void PublishQueued();
    void PublishVerbose();
    /// Both as bare switches.
    void AddQueueAndVerbose(ICommandLineBuilder& Builder) const;
};

/// Base of the actions for the native images of one assembly.
class TQXNGen20AssemblyAction : public TQXNGen20BaseAction
{
public:
    TQXNGen20AssemblyAction();

    [[nodiscard]] std::string GetStartingDir(const std::string& Exe) override;

    bool UseAssemblyName = false;
    std::string AssemblyName;
    std::string AssemblyPath;
    bool Debug = false;
    bool Profile = false;
    bool NoDep = false;
    bool UseExecConfig = false;
    std::string ExeConfigPath;
    bool UseAppBase = false;
    std::string AppBasePath;

protected:
    /// Names the assembly, the scenarios and the configuration.
    void AddArguments(ICommandLineBuilder& Builder) const override;

private:
    void AddAssemblyName(ICommandLineBuilder& Builder) const;
    void AddScenarios(ICommandLineBuilder& Builder) const;
    void AddConfig(ICommandLineBuilder& Builder) const;
};
