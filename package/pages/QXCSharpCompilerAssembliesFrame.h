#pragma once

#include "package/pages/QXListCompilerFrames.h"

class TCSharpCompilerAssembliesFrame final : public TListCompilerAssembliesFrame
{
public:
    TCSharpCompilerAssembliesFrame();

    TModulesGroup Modules{*this};
    TReferencesGroup References{*this, 1};
    TCheckBox chkDoNotImport{*this, "chkDoNotImport", "Do not import standard library (mscorlib.dll)"};
};
