#pragma once

#include "host/QXExecuteAction.h"

#include <array>
#include <string>
#include <string_view>

enum TQXDotfuscatorVerbosity { dvQuiet, dvNormal, dvVerbose };
constexpr auto QXElements(TQXDotfuscatorVerbosity)
{
    return std::array<std::string_view, 3>{"dvQuiet", "dvNormal", "dvVerbose"};
}

/// Runs Dotfuscator over a configuration that was made with the tool's own program.
class TQXDotfuscatorAction final : public TQXExecuteAbstractAction
{
public:
    TQXDotfuscatorAction();

    static std::string GetActionName() { return "Dotfuscator"; }
    static int GetHelpTopicID() { return 3830; }
    static std::string GetQuickHelpFilename() { return "Plugins\\Dotfuscator.html"; }

    [[nodiscard]] std::string GetExecutable() override;
    /// The folder of the configuration.
    [[nodiscard]] std::string GetStartingDir(const std::string& Exe) override;
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool InterpretResult(int ExitCode) override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;

    bool InvestigateOnly = false;
    TStringList Properties;
    std::string ConfigurationFile;
    TQXDotfuscatorVerbosity Verbosity = dvNormal;
    bool ShowDotfuscatorWindow = false;

private:
    void AddProperties(ICommandLineBuilder& Builder) const;
    [[nodiscard]] bool AddConfiguration(ICommandLineBuilder& Builder) const;
};
