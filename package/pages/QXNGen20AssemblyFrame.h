#pragma once

#include "package/pages/QXDotNetToolBaseFrame.h"

class TNGen20AssemblyFrame final : public TDotNetToolBaseFrame
{
public:
    TNGen20AssemblyFrame();
    [[nodiscard]] std::string PageName() const override { return "Assembly"; }

    TRadioButton btnUseAssPath{*this, "btnUseAssPath", "Specify assembly by file:"};
    TEdit txtAssPath{*this, "txtAssPath"};
    TRadioButton btnUseAssName{*this, "btnUseAssName", "Specify an assembly in the global assembly cache:"};
    TMemo txtAssName{*this, "txtAssName"};
};
