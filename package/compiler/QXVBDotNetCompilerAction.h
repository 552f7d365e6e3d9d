#pragma once

#include "package/compiler/QXDotNetManagedCompilerAction.h"

enum class TVBDotNetOptionCompare { OptCompareBinary, OptCompareText };
constexpr auto QXElements(TVBDotNetOptionCompare)
{
    return std::array<std::string_view, 2>{"OptCompareBinary", "OptCompareText"};
}

/// The settings that only the VB.NET compiler has.
struct TQXVBDotNetOptions
{
    bool Verbose = false;
    bool TargetCF = false;
    std::string Imports; ///< namespaces as the compiler takes them
    bool RemoveIntChecks = false;
    bool Quiet = false;
    bool OptionExplicit = false;
    bool OptionStrict = false;
    TVBDotNetOptionCompare OptionCompare = TVBDotNetOptionCompare::OptCompareBinary;
    bool DelaySign = false;
    std::string KeyContainer;
    std::string KeyFile;
};

/// Runs the VB.NET compiler.
class TQXCustomVBDotNetCompilerAction : public TQXManagedCompilerAction, public TQXVBDotNetOptions
{
public:
    static std::string GetActionName() { return "Microsoft VB.NET Compiler"; }
    static int GetHelpTopicID() { return 2530; }
    static std::string GetQuickHelpFilename() { return "Plugins\\VBDotNetCompiler.html"; }

    [[nodiscard]] std::string GetDotNetTool() const override { return "vbc.exe"; }
    void ResetOptions() override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;
    [[nodiscard]] bool GenerateResponseFile(TQXResponseFile& File) override;
};

/// Compiles a list of VB.NET sources.
class TQXVBDotNetCompilerAction final : public TQXCustomVBDotNetCompilerAction
{
public:
    TQXVBDotNetCompilerAction();
};
