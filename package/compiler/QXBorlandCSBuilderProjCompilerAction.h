#pragma once

#include "package/compiler/QXCSharpCompilerAction.h"
#include "package/compiler/QXProjectMapping.h"

/// Compiles a C# Builder project file.
class TQXBorlandCSBuilderProjCompilerAction final : public TQXCustomCSharpCompilerAction, public TQXProjectMapping
{
public:
    TQXBorlandCSBuilderProjCompilerAction();

    static std::string GetActionName() { return "Borland C# Builder Compiler"; }
    static int GetHelpTopicID() { return 2570; }
    static std::string GetQuickHelpFilename() { return "Plugins\\BorlandCSBuilderProjCompiler.html"; }

    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override { return ValidateProject(Errors); }
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] std::string GetProjectFilter() const override;
    void LoadConfigCompilerOptionsFromProjFile(const TXmlElement& OptionsSet) override;
    [[nodiscard]] bool DetectNameSpace(const std::string& FileName, std::string& Name) const override;
};
