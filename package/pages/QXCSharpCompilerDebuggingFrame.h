#pragma once

#include "package/pages/QXListCompilerFrames.h"

class TCSharpCompilerDebuggingFrame final : public TListCompilerDebuggingFrame
{
public:
    TCSharpCompilerDebuggingFrame();

    TWarningLevelGroup WarningLevel{*this};
    TWarnAsErrorGroup WarnAsError{*this};
    TCheckBox chkChecked{*this, "chkChecked", "Check integer arithmetic at run time"};
    TCheckBox chkFullPath{*this, "chkFullPath", "Specify the absolute path to the file in compiler output"};
};
