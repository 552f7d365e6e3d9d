#pragma once

#include "package/pages/QXSDKVersionFrame.h"

class TMSBuildFrame final : public TSDKVersionFrame
{
public:
    TMSBuildFrame();
    [[nodiscard]] std::string PageName() const override { return "MS Build"; }

    TEdit txtBuildFile{*this, "txtBuildFile", "Project File"};
    TGrid veProps{*this, "veProps", {}, {"Property", "Value"}};
    TLabel lblProps{*this, "lblProps", "Insert key adds a new row"};
    TEdit txtTargets{*this, "txtTargets", "Targets"};
    TLabel lblTargets{*this, "lblTargets", "separate multiple targets with semi-colons"};
    TComboBox cbLogLevel{
        *this, "cbLogLevel", "Logging Level :", {"Quiet", "Minimal", "Normal", "Detailed", "Diagnostic"}};
    TCheckBox chkNoLogo{*this, "chkNoLogo", "Surpress display of logo banner"};
    TCheckBox chkRestricted{*this, "chkRestricted", "Restricted (build process runs with fewer permissions)"};
};
