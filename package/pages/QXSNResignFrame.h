#pragma once

#include "package/pages/QXDotNetToolBaseFrame.h"

class TSNResignFrame final : public TDotNetToolBaseFrame
{
public:
    TSNResignFrame();
    [[nodiscard]] std::string PageName() const override { return "Re-sign Assembly"; }

    TLabel lblAssembly{*this, "lblAssembly", "Assembly"};
    TEdit txtAssembly{*this, "txtAssembly"};
    TRadioButton rbKeyFile{*this, "rbKeyFile", "Key File"};
    TEdit txtKeyfile{*this, "txtKeyfile"};
    TRadioButton rbContainer{*this, "rbContainer", "Container"};
    TEdit txtContainer{*this, "txtContainer"};
};
