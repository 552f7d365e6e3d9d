#pragma once

#include "package/pages/QXDotNetToolBaseFrame.h"

class TNGen20UpdateFrame final : public TDotNetToolBaseFrame
{
public:
    TNGen20UpdateFrame();
    [[nodiscard]] std::string PageName() const override { return "Options"; }

    TCheckBox boxQueue{*this, "boxQueue", "Queue for execution by the native image service (/queue)"};
    TCheckBox boxVerbose{*this, "boxVerbose", "Verbose execution (/verbose)"};
};
