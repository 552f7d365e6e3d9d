#pragma once

#include "package/pages/QXListCompilerFrames.h"

class TVBDOTNETCompilerMainFrame final : public TListCompilerMainFrame
{
public:
    TVBDOTNETCompilerMainFrame();

    TOutputGroup Output{*this};
    TCheckBox chkTargetCF{*this, "chkTargetCF", "Target the .NET Compact Framework"};
    TSearchGroup Search{*this, "Optional - eg. dir1\\dir2\\", "vb"};
};
