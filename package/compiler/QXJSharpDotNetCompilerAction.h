#pragma once

#include "package/compiler/QXDotNetManagedCompilerAction.h"

/// The settings that only the J# compiler has.
struct TQXJSharpOptions
{
    TDotNetWarningLevels WarningLevel = TDotNetWarningLevels::WarnLevel4;
    bool SecureScoping = false;
    bool DisableLangExt = false;
    TStringList JCPA; ///< lines Package=Namespace
};

/// Runs the J# compiler.
class TQXCustomJSharpCompilerAction : public TQXManagedCompilerAction, public TQXJSharpOptions
{
public:
    static std::string GetActionName() { return "Microsoft J# Compiler"; }
    static int GetHelpTopicID() { return 2550; }
    static std::string GetQuickHelpFilename() { return "Plugins\\JSharpCompiler.html"; }

    [[nodiscard]] std::string GetDotNetTool() const override { return "vjc.exe"; }
    void ResetOptions() override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;
    [[nodiscard]] bool GenerateResponseFile(TQXResponseFile& File) override;

private:
    /// Writes the package file and adds the switch that names it.
    [[nodiscard]] bool AddPackages(TQXResponseFile& File) const;
};

/// Compiles a list of J# sources.
class TQXJSharpCompilerAction final : public TQXCustomJSharpCompilerAction
{
public:
    TQXJSharpCompilerAction();
};
