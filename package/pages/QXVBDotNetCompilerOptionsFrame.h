#pragma once

#include "package/pages/QXListCompilerFrames.h"

class TVBDotNetCompilerOptionsFrame final : public TListCompilerOptionsFrame
{
public:
    TVBDotNetCompilerOptionsFrame();

    TDefinesGroup Defines{*this};
    TMainClassGroup MainClass{*this, "Main Class", "(For compiling an .exe with more than one Sub Main procedure)"};
    TNoLogoGroup NoLogo{*this};
    TUTF8Group UTF8{*this};
    TCheckBox chkVerbose{*this, "chkVerbose", "Output extra information during compilation"};
    TEdit txtSDKPath{*this, "txtSDKPath", "SDK Path (location of mscorlib.dll and microsoft.visualbasic.dll)"};
    TEdit txtRootNamespace{*this, "txtRootNamespace", "Root Namespace"};
};
