#pragma once

#include "package/pages/QXDotNetToolBaseFrame.h"

class TResGenFrame final : public TDotNetToolBaseFrame
{
public:
    TResGenFrame();
    [[nodiscard]] std::string PageName() const override { return "Resources"; }

    TEdit txtInputFiles{*this, "txtInputFiles", "Input File(s)"};
    TEdit txtOuputFile{*this, "txtOuputFile", "Output File (optional)"};
};
