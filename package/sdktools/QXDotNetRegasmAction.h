#pragma once

#include "package/plugin/QXDotNetAction.h"

#include <array>
#include <string>
#include <string_view>

/// Base of actions that run the tool that registers assemblies in COM.
class TRegasmBaseAction : public TQXDotNetAction
{
public:
    [[nodiscard]] TQXDotNetToolType GetDotNetToolType() const override { return ttFramework; }
    [[nodiscard]] std::string GetDotNetTool() const override { return "Regasm.exe"; }
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& /*Builder*/) override { return true; }
};

enum TRegAsmMode { asmRegister, asmUnregister, asmGenerateRegFile, asmGenAndRegTLB };
constexpr auto QXElements(TRegAsmMode)
{
    return std::array<std::string_view, 4>{"asmRegister", "asmUnregister", "asmGenerateRegFile", "asmGenAndRegTLB"};
}

/// Registers an assembly in COM or takes it out.
class TQXRegasmAction final : public TRegasmBaseAction
{
public:
    TQXRegasmAction();

    static std::string GetActionName() { return "Register Assembly in COM"; }
    static int GetHelpTopicID() { return 2710; }
    static std::string GetQuickHelpFilename() { return "Plugins\\DotNetRegASM.html"; }

    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;

    TRegAsmMode RegAsmMode = asmRegister;
    std::string AssemblyPath;
    std::string GenRegFile;
    std::string ExportToTLB;
    bool UnregisterTlb = false;
    bool Codebase = false;
    bool Registered = false;
    bool NoLogo = false;
    bool Silent = false;
    bool Verbose = false;
    std::string AsmPath; ///< kept for projects that hold it

private:
    [[nodiscard]] bool AddFile(ICommandLineBuilder& Builder, std::string_view Switch, std::string_view Label,
                               const std::string& Expression) const;
};
