#pragma once

#include "package/plugin/QXDotNetAction.h"

#include <string>

/// Base of actions that run the type library importer.
class TTLBImportBaseAction : public TQXDotNetAction
{
public:
    [[nodiscard]] TQXDotNetToolType GetDotNetToolType() const override { return ttSDK; }
    [[nodiscard]] std::string GetDotNetTool() const override { return "TLBImp.exe"; }
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& /*Builder*/) override { return true; }
};

/// Makes an interop assembly of a type library.
class TTLBImportAction final : public TTLBImportBaseAction
{
public:
    TTLBImportAction();

    static std::string GetActionName() { return "Type Library Import"; }
    static int GetHelpTopicID() { return 2720; }
    static std::string GetQuickHelpFilename() { return "Plugins\\DotNetTLBImport.html"; }

    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;

    std::string TypeLibraryName;
    std::string ResourceID;
    std::string AssemblyOutFile;
    std::string Namespace;
    std::string AsmVersion;
    TStringList References;
    std::string PublicKeyFile;
    std::string KeyFile;
    std::string KeyContainer;
    bool Transform = false;
    bool DelaySign = false;
    bool AllowUnsafe = false;
    bool NoLogo = false;
    bool Silent = false;
    bool Verbose = false;
    bool Primary = false;
    bool SysArray = false;
    bool StrictRef = false;

private:
    [[nodiscard]] bool AddTypeLibrary(ICommandLineBuilder& Builder) const;
    [[nodiscard]] bool AddReferences(ICommandLineBuilder& Builder) const;
};
