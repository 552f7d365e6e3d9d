#pragma once

#include "package/plugin/QXDotNetAction.h"

#include <array>
#include <string>
#include <string_view>

/// How the application is named.
enum TPathSpecifier { apVirtual, apMetabase, apVirtualPhysical };
constexpr auto QXElements(TPathSpecifier)
{
    return std::array<std::string_view, 3>{"apVirtual", "apMetabase", "apVirtualPhysical"};
}
/// How its assemblies are signed.
enum TStrongName { snNone, snKeyFile, snKeyContainer };
constexpr auto QXElements(TStrongName)
{
    return std::array<std::string_view, 3>{"snNone", "snKeyFile", "snKeyContainer"};
}

/// Compiles an ASP.NET 2.0 application before it is used.
class TASPNetCompilerAction final : public TQXDotNetAction
{
public:
    TASPNetCompilerAction();

    static std::string GetActionName() { return "Precompile ASP.NET 2.0 Application"; }
    static int GetHelpTopicID() { return 4950; }
    static std::string GetQuickHelpFilename() { return "Plugins\\DotNetASPCompiler.html"; }

    [[nodiscard]] TQXDotNetToolType GetDotNetToolType() const override { return ttFramework; }
    [[nodiscard]] std::string GetDotNetTool() const override { return "aspnet_compiler.exe"; }
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool BeforeExecute(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool Validate(IQXActionValidationError& /*Errors*/) override { return true; }

    TPathSpecifier UsePathSpecifier = apVirtual;
    std::string FullMetabasePath;
    std::string VirtualDirPath = "/";
    std::string PhysicalDirPath;
    bool UseTargetDir = false;
    std::string TargetDirPath;
    bool MakeUpdatable = false;
    bool Overwrite = false;
    bool Debug = false;
    bool FixedNames = false;
    bool FullRebuild = false;
    TStrongName UseStrongName = snNone;
    std::string KeyFilePath;
    std::string KeyContainerName;
    bool AllowPartiallyTrusted = false;
    bool DelaySigning = false;

private:
    [[nodiscard]] bool AddApplication(ICommandLineBuilder& Builder) const;
    [[nodiscard]] bool AddTarget(ICommandLineBuilder& Builder) const;
    [[nodiscard]] bool AddStrongName(ICommandLineBuilder& Builder) const;
};
