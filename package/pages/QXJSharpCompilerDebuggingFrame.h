#pragma once

#include "package/pages/QXListCompilerFrames.h"

class TJSharpCompilerDebuggingFrame final : public TListCompilerDebuggingFrame
{
public:
    TJSharpCompilerDebuggingFrame();

    TWarningLevelGroup WarningLevel{*this};
    TWarnAsErrorGroup WarnAsError{*this};
};
