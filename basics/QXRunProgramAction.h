#pragma once

#include "host/QXExecuteAction.h"

#include <string>
#include <vector>

/// Runs any program.
class TQXRunProgramAction final : public TQXExecuteAbstractAction
{
public:
    TQXRunProgramAction();

    static std::string GetActionName() { return "Run Program"; }
    static int GetHelpTopicID() { return 5150; }
    static std::string GetQuickHelpFilename() { return "Plugins\\RunProgram.html"; }

    [[nodiscard]] std::string GetExecutable() override;
    [[nodiscard]] std::string GetStartingDir(const std::string& Exe) override;
    [[nodiscard]] bool BeforeGetCommandLine() override;
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool InterpretResult(int ExitCode) override;
    void OnFailure(int ExitCode) override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;

    std::string Program;
    std::string Arguments;
    std::string StartDir;
    std::string SuccessCodes = "0";

private:
    std::string FStartDir;
    std::vector<int> FSuccessCodes;
};
