#pragma once

#include "package/plugin/QXDotNetAction.h"

#include <string>

/// Base of actions that run the type library exporter.
class TTLBExportBaseAction : public TQXDotNetAction
{
public:
    [[nodiscard]] TQXDotNetToolType GetDotNetToolType() const override { return ttSDK; }
    [[nodiscard]] std::string GetDotNetTool() const override { return "TLBExp.exe"; }
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& /*Builder*/) override { return true; }
};

/// Makes a type library of an assembly.
class TTLBExportAction final : public TTLBExportBaseAction
{
public:
    TTLBExportAction();

    static std::string GetActionName() { return "Type Library Export"; }
    static int GetHelpTopicID() { return 2730; }
    static std::string GetQuickHelpFilename() { return "Plugins\\DotNetTLBExport.html"; }

    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;

    std::string AssemblyName; ///< its file
    std::string OutputFile;
    std::string NamesCaseFile;
    bool NoLogo = false;
    bool Silent = false;
};
