#pragma once

#include "package/pages/QXListCompilerFrames.h"

class TVBDotNetDebuggingFrame final : public TListCompilerDebuggingFrame
{
public:
    TVBDotNetDebuggingFrame();

    TWarnAsErrorGroup WarnAsError{*this};
    TCheckBox chkNoCode{*this, "chkNoCode",
                        "Prevent compiler from displaying code for syntax-related errors and warnings"};
    TCheckBox chkRemoveIntChecks{*this, "chkRemoveIntChecks", "Disable interger overflow checking"};
};
