#pragma once

#include "package/compiler/QXJSharpDotNetCompilerAction.h"
#include "package/compiler/QXProjectMapping.h"

/// Compiles a J# project file.
class TQXJSProjCompilerAction final : public TQXCustomJSharpCompilerAction, public TQXProjectMapping
{
public:
    TQXJSProjCompilerAction();

    static std::string GetActionName() { return "Microsoft J# Project Compiler"; }
    static int GetHelpTopicID() { return 2560; }
    static std::string GetQuickHelpFilename() { return "Plugins\\JSharpProjectCompiler.html"; }

    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override { return ValidateProject(Errors); }
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool GenerateResponseFile(TQXResponseFile& File) override;
    [[nodiscard]] std::string GetProjectFilter() const override;
    [[nodiscard]] std::string GetCompilerTypeInProjectFile(const std::string& FileName) const override;
    void LoadSettingsFromProjFile(const TXmlElement& Settings) override;
    void LoadConfigCompilerOptionsFromProjFile(const TXmlElement& Config) override;
    [[nodiscard]] bool DetectNameSpace(const std::string& FileName, std::string& Name) const override;

    std::string AdditionalOptions; ///< a line for the compiler as the project holds it
    /// The project's root namespace. `RootNameSpace` stays empty: this language's resources get no prefix.
    std::string JSRootNamespace;
};
