#pragma once

#include "package/pages/QXListCompilerFrames.h"

class TJSharpCompilerAssembliesFrame final : public TListCompilerAssembliesFrame
{
public:
    TJSharpCompilerAssembliesFrame();

    TReferencesGroup References{*this, 0};
    TCheckBox chkSecureScoping{*this, "chkSecureScoping", "Make package-scoped members internal to the assembly"};
};
