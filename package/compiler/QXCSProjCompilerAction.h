#pragma once

#include "package/compiler/QXCSharpCompilerAction.h"
#include "package/compiler/QXProjectMapping.h"

/// Compiles a C# project file.
class TQXCSProjCompilerAction final : public TQXCustomCSharpCompilerAction, public TQXProjectMapping
{
public:
    TQXCSProjCompilerAction();

    static std::string GetActionName() { return "Microsoft C# Project Compiler"; }
    static int GetHelpTopicID() { return 2520; }
    static std::string GetQuickHelpFilename() { return "Plugins\\CSharpProjectCompiler.html"; }

    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override { return ValidateProject(Errors); }
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool IsCompactFramework() const override;
    [[nodiscard]] std::string GetProjectFilter() const override;
    [[nodiscard]] std::string GetCompilerTypeInProjectFile(const std::string& FileName) const override;
    void LoadSettingsFromProjFile(const TXmlElement& Settings) override;
    void LoadConfigCompilerOptionsFromProjFile(const TXmlElement& Config) override;
    [[nodiscard]] bool DetectNameSpace(const std::string& FileName, std::string& Name) const override;
};
