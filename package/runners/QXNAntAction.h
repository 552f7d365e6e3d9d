#pragma once

#include "host/QXExecuteAction.h"

#include <array>
#include <string>
#include <string_view>

/// Scoped: other tools have levels of the same names.
enum class TNAntLogLevel { llQuiet, llNormal, llVerbose, llDebug };
constexpr auto QXElements(TNAntLogLevel)
{
    return std::array<std::string_view, 4>{"llQuiet", "llNormal", "llVerbose", "llDebug"};
}

enum TNAntIndent { iDefault, i0, i1, i2, i3, i4, i5, i6 };
constexpr auto QXElements(TNAntIndent)
{
    return std::array<std::string_view, 8>{"iDefault", "i0", "i1", "i2", "i3", "i4", "i5", "i6"};
}

/// Runs a NAnt build file.
class TNAntAction final : public TQXExecuteAbstractAction
{
public:
    TNAntAction();

    static std::string GetActionName() { return "NAnt Project"; }
    static int GetHelpTopicID() { return 2590; }
    static std::string GetQuickHelpFilename() { return "Plugins\\NAnt.html"; }

    [[nodiscard]] std::string GetExecutable() override;
    [[nodiscard]] std::string GetStartingDir(const std::string& Exe) override;
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;

    std::string BuildFile;
    TStringList Properties;
    std::string PropFile; ///< kept for projects that hold it
    TNAntLogLevel LogLevel = TNAntLogLevel::llNormal;
    bool OutputToLog = false;
    std::string LogFile;
    std::string Targets;
    TNAntIndent IndentLevel = iDefault;
    bool NoLogo = false;
    std::string Framework;

private:
    [[nodiscard]] bool AddProperties(ICommandLineBuilder& Builder) const;
    [[nodiscard]] bool AddLogSettings(ICommandLineBuilder& Builder) const;
};
