#pragma once

#include "package/pages/QXToolOptionsFrame.h"

class TDemeanorOptionsFrame final : public TToolOptionsFrame
{
public:
    TDemeanorOptionsFrame()
        : TToolOptionsFrame({.PageName = "Demeanor",
                             .Caption = "Demeanor Location",
                             .Property = "DemeanorExe",
                             .Filter = "Demeanor.Exe|Demeanor.Exe"})
    {}
};
