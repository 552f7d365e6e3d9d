#pragma once

#include "package/pages/QXListCompilerFrames.h"

class TJSharpCompilerOptionsFrame final : public TListCompilerOptionsFrame
{
public:
    TJSharpCompilerOptionsFrame();

    TDefinesGroup Defines{*this};
    TCodePageGroup CodePage{*this};
    TMainClassGroup MainClass{*this, "Main Method", "(For compiling an .exe with more than one Main method)"};
    TNoLogoGroup NoLogo{*this};
    TUTF8Group UTF8{*this};
    TCheckBox chkDisableLang{*this, "chkDisableLang", "Disable Language Extensions"};
    TGrid ValueListEditor1{*this, "ValueListEditor1", "Java/COM package association", {"Package", "Namespace"}};
};
