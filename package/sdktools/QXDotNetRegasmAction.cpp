#include "package/sdktools/QXDotNetRegasmAction.h"

#include "package/plugin/QXActionHelpers.h"

TQXRegasmAction::TQXRegasmAction()
{
    Publish("RegAsmMode", RegAsmMode, "What to do with the assembly");
    Publish("AssemblyPath", AssemblyPath, "The assembly").File().Required("%ProjectDir%/bin/Acme.Core.dll");
    Publish("GenRegFile", GenRegFile, "Registration file to write instead of registering").File();
    Publish("ExportToTLB", ExportToTLB, "Type library to write and register, or to unregister").File();
    Publish("UnregisterTlb", UnregisterTlb, "Unregister the type library together with the assembly");
    Publish("Codebase", Codebase, "Register where the file lies");
    Publish("Registered", Registered, "Refer only to type libraries that are registered already");
    Publish("NoLogo", NoLogo, "Leave out the tool's banner");
    Publish("Silent", Silent, "Leave out messages of success");
    Publish("Verbose", Verbose, "Say more of what is done");
    Publish("AsmPath", AsmPath, "Not used");
}

bool TQXRegasmAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    Builder.SetSwitchSeparator("");
    if (!AddExpanded(*this, Builder, "", "Assembly", AssemblyPath))
        return false;
    AddFlags(Builder, {{RegAsmMode == asmUnregister, "/unregister"}});
    if (RegAsmMode == asmGenerateRegFile && !AddFile(Builder, "/regfile", "Reg File", GenRegFile))
        return false;
    const bool HasLibrary = RegAsmMode == asmGenAndRegTLB || (RegAsmMode == asmUnregister && UnregisterTlb);
    if (HasLibrary && !AddFile(Builder, "/tlb", "Tlb File", ExportToTLB))
        return false;
    AddFlags(Builder, {{Codebase, "/codebase"},
                       {Registered, "/registered"},
                       {NoLogo, "/nologo"},
                       {Silent, "/silent"},
                       {Verbose, "/verbose"}});
    return true;
}

/// A switch that stands alone where no file is named.
bool TQXRegasmAction::AddFile(ICommandLineBuilder& Builder, std::string_view Switch, std::string_view Label,
                              const std::string& Expression) const
{
    std::string File;
    if (!TryExpandExpression(Label, Expression, File, false))
        return false;
    Builder.AddArgument(Switch, File.empty() ? File : ':' + File);
    return true;
}

bool TQXRegasmAction::Validate(IQXActionValidationError& Errors)
{
    return Require(Errors,
                   {{AssemblyPath, "Assembly", "Assembly has not been set"},
                    {RegAsmMode != asmGenerateRegFile || !GenRegFile.empty(), "Reg File", "Reg file has not been set"},
                    {RegAsmMode != asmGenAndRegTLB || !ExportToTLB.empty(), "Type Library File",
                     "Type Library file has not been set"}});
}
