#pragma once

#include "package/plugin/QXDotNetAction.h"

#include <string>

/// Converts a resource file.
class TQXResGenAction final : public TQXDotNetAction
{
public:
    TQXResGenAction();

    static std::string GetActionName() { return "Resource Compiler [ResGen]"; }
    static int GetHelpTopicID() { return 2890; }
    static std::string GetQuickHelpFilename() { return "Plugins\\DotNetResGen.html"; }

    [[nodiscard]] TQXDotNetToolType GetDotNetToolType() const override { return ttSDK; }
    [[nodiscard]] std::string GetDotNetTool() const override { return "resgen.exe"; }
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;

    std::string InputFiles; ///< one argument, whatever it holds
    std::string OutputFile;
};
