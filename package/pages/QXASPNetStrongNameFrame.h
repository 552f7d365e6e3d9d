#pragma once

#include "host/QXPages.h"

class TASPNetStrongNameFrame final : public TFrame
{
public:
    TASPNetStrongNameFrame();
    [[nodiscard]] std::string PageName() const override { return "Strong Name"; }

    TRadioButton btnNoStrongName{*this, "btnNoStrongName", "Do not sign assembly with strong name key"};
    TRadioButton btnUseKeyFile{*this, "btnUseKeyFile", "Use strong name key file: (-keyfile)"};
    TEdit txtKeyFilePath{*this, "txtKeyFilePath"};
    TRadioButton btnUseKeyContainer{*this, "btnUseKeyContainer", "Use strong name key container: (-keycontainer)"};
    TEdit txtKeyContainerName{*this, "txtKeyContainerName"};
    TCheckBox boxAllowPartially{*this, "boxAllowPartially", "Allow partially trusted callers (-aptca)"};
    TCheckBox boxDelaySign{*this, "boxDelaySign", "Do not fully sign assembly at creation (-delaysign)"};
};
