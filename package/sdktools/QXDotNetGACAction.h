#pragma once

#include "package/plugin/QXDotNetAction.h"

/// Base of the actions that run the tool of the global assembly cache: its properties and the switches that
/// installing and uninstalling share.
class TQXGACAction : public TQXDotNetAction
{
public:
    TQXGACAction();

    static std::string GetActionName() { return "GAC Util"; }

    [[nodiscard]] TQXDotNetToolType GetDotNetToolType() const override { return ttSDK; }
    [[nodiscard]] std::string GetDotNetTool() const override { return "gacutil.exe"; }
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;

    std::string AssemblyName;
    std::string AssemblyPath;
    std::string AssemblyListFile;
    bool UseListFile = false;
    bool Force = false;
    bool ReferenceCount = false;
    std::string RefScheme;
    std::string RefID;
    std::string RefDescription;

private:
    [[nodiscard]] bool AddReference(ICommandLineBuilder& Builder) const;
};

/// Puts an assembly into the global assembly cache, or the assemblies that a list file names.
class TGACInstallAction final : public TQXGACAction
{
public:
    TGACInstallAction();

    static std::string GetActionName() { return "GAC Install"; }
    static int GetHelpTopicID() { return 2630; }
    static std::string GetQuickHelpFilename() { return "Plugins\\GACInstall.html"; }

    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;
};

/// Takes an assembly out of the global assembly cache, or the assemblies that a list file names.
class TGACUninstallAction final : public TQXGACAction
{
public:
    TGACUninstallAction();

    static std::string GetActionName() { return "GAC Uninstall"; }
    static int GetHelpTopicID() { return 2640; }
    static std::string GetQuickHelpFilename() { return "Plugins\\GACUninstall.html"; }

    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;

    /// Name the assembly by its file and not by its display name.
    bool UseAssemblyPath = false;
};

/// Lists or clears the download cache. Uses none of the inherited properties.
class TGACListAction final : public TQXGACAction
{
public:
    TGACListAction();

    static std::string GetActionName() { return "GAC Download Cache"; }
    static int GetHelpTopicID() { return 2650; }
    static std::string GetQuickHelpFilename() { return "Plugins\\GACList.html"; }

    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    void OnFailure(int ExitCode) override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;

    bool DeleteDownloadCache = false;
};
