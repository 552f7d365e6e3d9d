#pragma once

#include "package/pages/QXToolOptionsFrame.h"

class TNUnitOptionsFrame final : public TToolOptionsFrame
{
public:
    TNUnitOptionsFrame()
        : TToolOptionsFrame({.PageName = "",
                             .Caption = "NUnit Location",
                             .Property = "NUnitLocation",
                             .Filter = "",
                             .Control = "txtLoc"})
    {
        BrowseAsIs(txtLocation, "NUnit (nunit-console.exe)|nunit-console.exe");
    }
};
