#pragma once

#include "host/QXPages.h"

class TXenoCodeOptionsFrame final : public TOptionsFrame
{
public:
    TXenoCodeOptionsFrame();
    [[nodiscard]] std::string GetPageName() const override { return "XenoCode"; }

    TEdit edXenoCode{*this, "edXenoCode", "XenoCode 2004 Location"};
    TEdit edtXenoCode2005Location{*this, "edtXenoCode2005Location", "XenoCode 2005 Location"};
    TEdit edtXenoCode2006Location{*this, "edtXenoCode2006Location", "XenoCode 2006 Location"};
    TLabel lblXenoCodeVersion{*this, "lblXenoCodeVersion", "Default XenoCode Version"};
    TRadioButton rbXenoCode2004{*this, "rbXenoCode2004", "XenoCode 2004"};
    TRadioButton rbXenoCode2005{*this, "rbXenoCode2005", "XenoCode 2005"};
    TRadioButton rbXenoCode2006{*this, "rbXenoCode2006", "XenoCode 2006"};
};
