#pragma once

#include "package/pages/QXListCompilerFrames.h"

class TCSharpCompilerResourcesFrame final : public TListCompilerResourcesFrame
{
public:
    TCSharpCompilerResourcesFrame();

    TIconGroup Icon{*this};
    TWin32ResourcesGroup Win32{*this};
};
