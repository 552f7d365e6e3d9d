#pragma once

#include "package/pages/QXListCompilerFrames.h"

class TJSharpCompilerResourcesFrame final : public TListCompilerResourcesFrame
{
public:
    TWin32ResourcesGroup Win32{*this};
};
