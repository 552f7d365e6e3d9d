#pragma once

#include "host/QXExecuteAction.h"
#include "package/analysis/QXXenoCodeOptions.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

enum TXenoCodePreset { xcpUseDefault, xcpAgressive, xcpConservative, xcpNull, xpcSize, xpcMeta };
constexpr auto QXElements(TXenoCodePreset)
{
    return std::array<std::string_view, 6>{"xcpUseDefault", "xcpAgressive", "xcpConservative",
                                           "xcpNull",       "xpcSize",      "xpcMeta"};
}

/// Runs one of the three generations of XenoCode.
class TQXXenoCodeAction final : public TQXExecuteAbstractAction
{
public:
    TQXXenoCodeAction();

    static std::string GetActionName() { return "XenoCode"; }
    static int GetHelpTopicID() { return 3850; }
    static std::string GetQuickHelpFilename() { return "Plugins\\XenoCode.html"; }

    /// The generation to run: as set, else that of the options when it is first asked for, from then on.
    [[nodiscard]] TXenoCodeVersion GetXenoCodeVersion() const;
    void SetXenoCodeVersion(TXenoCodeVersion Version);

    [[nodiscard]] std::string GetExecutable() override;
    /// The folder of the configuration.
    [[nodiscard]] std::string GetStartingDir(const std::string& Exe) override;
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] std::vector<std::string> GetOutputs() override;
    [[nodiscard]] bool InterpretResult(int ExitCode) override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;

    std::string ConfigFile;
    std::string OutputFolder;
    std::string MapFile;
    TStringList Watermarks;
    TXenoCodePreset Preset = xcpUseDefault;
    std::string PassPhrase;
    bool EncryptStrings = false;

private:
    [[nodiscard]] bool AddConfiguration(ICommandLineBuilder& Builder) const;
    [[nodiscard]] bool AddOutputFolder(ICommandLineBuilder& Builder);
    void AddMapAndMarks(ICommandLineBuilder& Builder) const;
    [[nodiscard]] bool AddPreset(ICommandLineBuilder& Builder) const;
    void AddPassPhrase(ICommandLineBuilder& Builder) const;

    mutable std::optional<TXenoCodeVersion> FVersion;
    bool FIsVersionSet = false;
};
