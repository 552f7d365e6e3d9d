#pragma once

#include "host/QXAction.h"

#include <string>

/// Checks assemblies by FxCop's rules. The tool's exit code is a set of bits, which the log explains.
class TQXFxCopAction final : public TQXAction
{
public:
    TQXFxCopAction();

    static std::string GetActionName() { return "FxCop"; }
    static int GetHelpTopicID() { return 3820; }
    static std::string GetQuickHelpFilename() { return "Plugins\\FxCop.html"; }

    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;
    /// The same for a caller that collects nothing: with null the log is told.
    [[nodiscard]] bool ExecuteValidate(IQXActionValidationError* Errors) const;
    [[nodiscard]] bool Execute() override;
    /// The tool's arguments; finds the start directory besides.
    [[nodiscard]] std::string GetParams();
    /// Logs what the tool's exit code means; true for 0.
    bool SendErrorMessage(int ExitCode) const;

    std::string ProjectFile;
    std::string Targets;     ///< comma text, as the next two
    std::string Rules;       ///< comma text
    std::string Directories; ///< comma text
    std::string OutputFilename;
    std::string ImportReports; ///< comma text
    std::string PlatformFolder;
    std::string AnalyzeTypes; ///< comma text
    std::string TransformationXSL;
    bool CaptureOutput = true;
    bool SummaryReport = false;
    bool VerboseReport = false;
    bool UpdateProjectFile = false;

    /// Where the tool starts: the folder of the project in the current run.
    std::string StartDirectory;

private:
    void PublishInputs();
    void PublishOutputs();
    [[nodiscard]] bool RunTool(const std::string& Exe);
};
