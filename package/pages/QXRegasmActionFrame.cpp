#include "package/pages/QXRegasmActionFrame.h"

#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "package/sdktools/QXDotNetRegasmAction.h"

TQXRegasmActionFrame::TQXRegasmActionFrame()
{
    BindMode();
    Bind(txtRegFile, &TQXRegasmAction::GenRegFile);
    Bind(txtTlbFile, &TQXRegasmAction::ExportToTLB);
    Bind(txtAssemblyPath, &TQXRegasmAction::AssemblyPath);
    Bind(chkCodebase, &TQXRegasmAction::Codebase);
    Bind(chkRegistered, &TQXRegasmAction::Registered);
    Bind(chkNoLogo, &TQXRegasmAction::NoLogo);
    Bind(chkSilent, &TQXRegasmAction::Silent);
    Bind(chkVerbose, &TQXRegasmAction::Verbose);
    Browse(txtRegFile, FileFilters::RegFile);
    Browse(txtTlbFile, FileFilters::TypeLibraryFile);
    Browse(txtAssemblyPath, FileFilters::Assembly);
    ExcludeEachOther(cbGenRegFile, cbTlb);
    rbAssemblyReg.OnClick = rbUnreg.OnClick = [this] { FWasClicked = true; };
    AddRule([this] { FitToRadioButtons(); });
}

void TQXRegasmActionFrame::BindMode()
{
    BindMember(
        rbUnreg, &TQXRegasmAction::RegAsmMode, [this](TRegAsmMode Mode) { ShowMode(Mode); },
        [this](TRegAsmMode& Mode) { Mode = ShownMode(); });
    // Behind the mode: only while the assembly is unregistered does the box show this flag.
    BindMember(
        cbTlb, &TQXRegasmAction::UnregisterTlb,
        [this](bool Value) { cbTlb.Checked = cbTlb.Checked || (rbUnreg.IsChecked() && Value); },
        [this](bool& Value) { Value = cbTlb.Checked; });
}

void TQXRegasmActionFrame::ShowMode(TRegAsmMode Mode)
{
    (Mode == asmUnregister ? rbUnreg : rbAssemblyReg).Check();
    cbGenRegFile.Checked = Mode == asmGenerateRegFile;
    cbTlb.Checked = Mode == asmGenAndRegTLB;
}

TRegAsmMode TQXRegasmActionFrame::ShownMode() const
{
    if (rbUnreg.IsChecked())
        return asmUnregister;
    if (cbGenRegFile.Checked)
        return asmGenerateRegFile;
    return cbTlb.Checked ? asmGenAndRegTLB : asmRegister;
}

void TQXRegasmActionFrame::FitToRadioButtons()
{
    if (!FWasClicked)
        return;
    cbGenRegFile.Enabled = !rbUnreg.IsChecked();
    txtRegFile.Enabled = cbGenRegFile.Enabled;
    cbTlb.Caption =
        rbUnreg.IsChecked() ? "Unregister type library (/tlb):" : "Generate and register type library (/tlb):";
}
