#pragma once

#include "package/pages/QXDotNetToolBaseFrame.h"
#include "package/sdktools/QXDotNetRegasmAction.h"

class TQXRegasmActionFrame final : public TDotNetToolBaseFrame
{
public:
    TQXRegasmActionFrame();
    [[nodiscard]] std::string PageName() const override { return "Regasm Options"; }

    TRadioButton rbAssemblyReg{*this, "rbAssemblyReg", "Register Assembly"};
    TRadioButton rbUnreg{*this, "rbUnreg", "Unregister Assembly"};
    TCheckBox cbGenRegFile{*this, "cbGenRegFile", "Generate Reg file (/reg):"};
    TEdit txtRegFile{*this, "txtRegFile"};
    TCheckBox cbTlb{*this, "cbTlb", "Generate and Register Type Library:"};
    TEdit txtTlbFile{*this, "txtTlbFile"};
    TLabel lblAssemblyPath{*this, "lblAssemblyPath", "Assembly"};
    TEdit txtAssemblyPath{*this, "txtAssemblyPath"};
    TCheckBox chkCodebase{*this, "chkCodebase", "Create a Codebase entry in the Registry"};
    TCheckBox chkRegistered{*this, "chkRegistered", "Only refer to already registered type libraries"};
    TCheckBox chkNoLogo{*this, "chkNoLogo", "Suppres the Microsoft startup banner"};
    TCheckBox chkSilent{*this, "chkSilent", "Suppress success messages"};
    TCheckBox chkVerbose{*this, "chkVerbose", "Verbose output"};

private:
    void BindMode();
    void ShowMode(TRegAsmMode Mode);
    [[nodiscard]] TRegAsmMode ShownMode() const;
    void FitToRadioButtons();
    bool FWasClicked = false; ///< before, captions and boxes are as on a new page whatever is read
};
