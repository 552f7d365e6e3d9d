#pragma once

#include "package/compiler/QXDotNetManagedCompilerAction.h"

enum class TCSharpFileAlign { faDefault, fa512, fa1024, fa2048, fa4096, fa8192 };
constexpr auto QXElements(TCSharpFileAlign)
{
    return std::array<std::string_view, 6>{"faDefault", "fa512", "fa1024", "fa2048", "fa4096", "fa8192"};
}

/// The settings that only the C# compiler has.
struct TQXCSharpOptions
{
    TCSharpFileAlign FileAlign = TCSharpFileAlign::faDefault;
    std::string DocFile;
    bool NoSTDLib = false;
    bool Checked = false;
    bool FullPaths = false;
    bool Incremental = false;
    bool NoConfig = false;
    bool CompileUnsafe = false;
    TDotNetWarningLevels WarningLevel = TDotNetWarningLevels::WarnLevel4;
};

/// Runs the C# compiler.
class TQXCustomCSharpCompilerAction : public TQXManagedCompilerAction, public TQXCSharpOptions
{
public:
    static std::string GetActionName() { return "Microsoft C# Compiler"; }
    static int GetHelpTopicID() { return 2510; }
    static std::string GetQuickHelpFilename() { return "Plugins\\CSharpCompiler.html"; }

    [[nodiscard]] std::string GetDotNetTool() const override { return "csc.exe"; }
    void ResetOptions() override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;
    [[nodiscard]] bool GenerateResponseFile(TQXResponseFile& File) override;

private:
    [[nodiscard]] bool AddDocumentation(TQXResponseFile& File) const;
    [[nodiscard]] bool AddLibraryPath(TQXResponseFile& File) const;
};

/// Compiles a list of C# sources.
class TQXCSharpCompilerAction final : public TQXCustomCSharpCompilerAction
{
public:
    TQXCSharpCompilerAction();
};
