#pragma once

#include "package/pages/QXDotNetToolBaseFrame.h"

class TSNInstallKeyPairFrame final : public TDotNetToolBaseFrame
{
public:
    TSNInstallKeyPairFrame();
    [[nodiscard]] std::string PageName() const override { return "Install Key Pair"; }

    TEdit txtKeyfile{*this, "txtKeyfile", "Key File:"};
    TEdit txtContainerFile{*this, "txtContainerFile", "Container:"};
};
