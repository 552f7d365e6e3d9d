#pragma once

#include "host/QXPages.h"

class TDotfuscatorFrame final : public TFrame
{
public:
    TDotfuscatorFrame();
    [[nodiscard]] std::string PageName() const override { return "Settings"; }

    TEdit edConfigFile{*this, "edConfigFile", "Configuration File"};
    TComboBox cbVerbosity{*this, "cbVerbosity", "", {"Quiet", "Normal", "Verbose"}};
    TGrid vleProperties{*this,
                        "vleProperties",
                        "(To add a new property, place the cursor in an existing row and press the down arrow key.)",
                        {"Name", "Value"}};
    TCheckBox chkInvestigateOnly{*this, "chkInvestigateOnly", "Investigate only"};
    TCheckBox chkShowWindow{*this, "chkShowWindow", "Show Window (for community edition as it pops up a dialog)"};
};
