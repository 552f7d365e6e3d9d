#pragma once

#include "package/pages/QXListCompilerFrames.h"

class TJSharpCompilerMainFrame final : public TListCompilerMainFrame
{
public:
    TJSharpCompilerMainFrame() : TListCompilerMainFrame("jsl") {}

    TOutputGroup Output{*this};
    TSearchGroup Search{*this, "Optional - eg. dir1\\dir2\\", "jsl"};
};
