#pragma once

#include "package/pages/QXToolOptionsFrame.h"

class TNAntOptionsFrame final : public TToolOptionsFrame
{
public:
    TNAntOptionsFrame()
        : TToolOptionsFrame({.PageName = "NAnt",
                             .Caption = "NAnt Location",
                             .Property = "NAntLocation",
                             .Filter = "NAnt (nant.exe)|nant.exe"})
    {}
};
