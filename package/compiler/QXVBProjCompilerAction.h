#pragma once

#include "package/compiler/QXProjectMapping.h"
#include "package/compiler/QXVBDotNetCompilerAction.h"

/// Compiles a VB.NET project file.
class TQXVBProjCompilerAction final : public TQXCustomVBDotNetCompilerAction, public TQXProjectMapping
{
public:
    TQXVBProjCompilerAction();

    static std::string GetActionName() { return "Microsoft VB.Net Project Compiler"; }
    static int GetHelpTopicID() { return 2540; }
    static std::string GetQuickHelpFilename() { return "Plugins\\VBDotNetProjectCompiler.html"; }

    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override { return ValidateProject(Errors); }
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool IsCompactFramework() const override;
    [[nodiscard]] std::string GetProjectFilter() const override;
    [[nodiscard]] std::string GetCompilerTypeInProjectFile(const std::string& FileName) const override;
    void LoadSettingsFromProjFile(const TXmlElement& Settings) override;
    void LoadConfigCompilerOptionsFromProjFile(const TXmlElement& Config) override;
    /// Takes over the imported namespaces; false if there are none.
    [[nodiscard]] bool LoadCompilerOtherSettings(const std::string& FileName, const TXmlElement& Root) override;
    [[nodiscard]] bool DetectNameSpace(const std::string& FileName, std::string& Name) const override;
};
