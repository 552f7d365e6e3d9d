#pragma once

#include "package/plugin/QXDotNetAction.h"

#include <array>
#include <string>
#include <string_view>

enum TMSLogLevel { llQuiet, llMinimal, llNormal, llDetailed, llDiagnostic };
constexpr auto QXElements(TMSLogLevel)
{
    return std::array<std::string_view, 5>{"llQuiet", "llMinimal", "llNormal", "llDetailed", "llDiagnostic"};
}

/// Builds an MSBuild project.
class TMSBuildAction final : public TQXDotNetAction
{
public:
    TMSBuildAction();

    static std::string GetActionName() { return "MSBuild Project"; }
    static int GetHelpTopicID() { return 2600; }
    static std::string GetQuickHelpFilename() { return "Plugins\\MSBuild.html"; }

    [[nodiscard]] TQXDotNetToolType GetDotNetToolType() const override { return ttFramework; }
    [[nodiscard]] std::string GetDotNetTool() const override { return "msbuild.exe"; }
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    void OnFailure(int ExitCode) override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;

    std::string BuildFile;
    TStringList Properties;
    TMSLogLevel LogLevel = llNormal;
    bool OutputToLog = false; ///< kept for projects that hold it
    std::string Targets;
    bool NoLogo = false;
    bool Restricted = false;

private:
    [[nodiscard]] bool AddProperties(ICommandLineBuilder& Builder) const;
};
