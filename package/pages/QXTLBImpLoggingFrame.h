#pragma once

#include "host/QXPages.h"

class TTLBImpLoggingFrame final : public TFrame
{
public:
    TTLBImpLoggingFrame();
    [[nodiscard]] std::string PageName() const override { return "Logging"; }

    TCheckBox chkNoLogo{*this, "chkNoLogo", "Supress logo (/nologo)"};
    TCheckBox chkSilent{*this, "chkSilent", "Suppress all output except errors (/silent)"};
    TCheckBox chkVerbose{*this, "chkVerbose", "Display extra information (/verbose)"};
};
