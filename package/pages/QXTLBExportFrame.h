#pragma once

#include "package/pages/QXDotNetToolBaseFrame.h"

class TTLBExportFrame final : public TDotNetToolBaseFrame
{
public:
    TTLBExportFrame();
    [[nodiscard]] std::string PageName() const override { return "TLB Export Options"; }

    TEdit txtAssembly{*this, "txtAssembly", "Assembly"};
    TEdit txtOutput{*this, "txtOutput", "TypeLibrary Output File"};
    TEdit txtCapFile{*this, "txtCapFile", "Capitalization File"};
    TCheckBox chkNoLogo{*this, "chkNoLogo", "Don't display Logo"};
    TCheckBox chkNoSuccess{*this, "chkNoSuccess", "Don't display success messages"};
};
