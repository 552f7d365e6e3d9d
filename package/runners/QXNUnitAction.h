#pragma once

#include "host/QXExecuteAction.h"

#include <string>
#include <string_view>

/// Runs the tests of an NUnit project or of assemblies; on demand, a run that ends well without a test fails.
class TQXNUnitAction final : public TQXExecuteAbstractAction
{
public:
    TQXNUnitAction();

    static std::string GetActionName() { return "NUnit"; }
    static int GetHelpTopicID() { return 2610; }
    static std::string GetQuickHelpFilename() { return "Plugins\\NUnit.html"; }

    [[nodiscard]] std::string GetExecutable() override;
    /// The folder of what is tested, else the tool's.
    [[nodiscard]] std::string GetStartingDir(const std::string& Exe) override;
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool BeforeExecute(ICommandLineBuilder& Builder) override;
    void OnStdOutData(IQXProcess& Process, std::string_view Data) override;
    [[nodiscard]] bool InterpretResult(int ExitCode) override;
    void OnFailure(int ExitCode) override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;

    bool UseProjectFile = true;
    std::string ProjectFile;
    TStringList Assemblies;
    std::string Fixture;
    std::string XMLOutputFile;
    std::string TransformFile;
    bool NoLogo = false;
    bool XMLToConsole = false;
    std::string ProjectConfig;
    bool FailIfNoTests = false;

private:
    [[nodiscard]] bool AddInput(ICommandLineBuilder& Builder) const;

    // What the tool said in this run.
    bool FNoTestsRun = false;
    bool FRefusedSwitch = false;
};
