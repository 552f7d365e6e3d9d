#pragma once

#include "package/pages/QXDotNetToolBaseFrame.h"

class TSNVerifySNFrame final : public TDotNetToolBaseFrame
{
public:
    TSNVerifySNFrame();
    [[nodiscard]] std::string PageName() const override { return "Verify Strong Name"; }

    TLabel lblAssembly{*this, "lblAssembly", "Assembly"};
    TEdit txtAssembly{*this, "txtAssembly"};
    TCheckBox chkForce{*this, "chkForce", "Force"};
    TCheckBox chkReverseAction{*this, "chkReverseAction", "Fail if valid Strong Name"};
};
