#pragma once

#include "package/plugin/QXDotNetAction.h"
#include "package/sdktools/QXFreeFormAction.h"

#include <string>
#include <string_view>

/// Base of actions that run the tool that registers ASP.NET in IIS.
class TASPIISRegBaseAction : public TQXDotNetAction
{
public:
    [[nodiscard]] TQXDotNetToolType GetDotNetToolType() const override { return ttFramework; }
    [[nodiscard]] std::string GetDotNetTool() const override { return "Aspnet_regiis.exe"; }
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& /*Builder*/) override { return true; }
};

/// Runs the tool with whatever arguments the user writes. Its exit code alone does not tell success.
class TASPIISRegGeneric final : public TQXFreeFormAction<TASPIISRegBaseAction>
{
public:
    static std::string GetActionName() { return "ASP.Net IIS Registration"; }
    static int GetHelpTopicID() { return 2760; }
    static std::string GetQuickHelpFilename() { return "Plugins\\DotNetASPIISReg.html"; }

    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool InterpretResult(int ExitCode) override { return ExitCode == 0 && FSucceeded; }
    void OnStdErrData(IQXProcess& Process, std::string_view Data) override;
    void OnStdOutData(IQXProcess& Process, std::string_view Data) override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;

private:
    bool FSucceeded = false; ///< as far as the output of this run tells
};
