#pragma once

#include "package/plugin/QXDotNetAction.h"
#include "package/sdktools/QXFreeFormAction.h"

#include <string>
#include <vector>

/// Base of actions that run the assembly linker.
class TALBaseAction : public TQXDotNetAction
{
public:
    TALBaseAction() { MinimumSDKVersion = "1.0"; }

    [[nodiscard]] TQXDotNetToolType GetDotNetToolType() const override { return ttSDK; }
    [[nodiscard]] std::string GetDotNetTool() const override { return "al.exe"; }
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& /*Builder*/) override { return true; }
};

/// Runs the assembly linker with whatever arguments the user writes.
class TALGenericAL final : public TQXFreeFormAction<TALBaseAction>
{
public:
    static std::string GetActionName() { return "Run AL.EXE"; }
    static int GetHelpTopicID() { return 2750; }
    static std::string GetQuickHelpFilename() { return "Plugins\\DotNetAL.html"; }

    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;
    [[nodiscard]] std::vector<std::string> GetOutputs() override;
};
