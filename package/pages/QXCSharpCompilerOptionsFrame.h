#pragma once

#include "package/pages/QXListCompilerFrames.h"

class TCSharpCompilerOptionsFrame final : public TListCompilerOptionsFrame
{
public:
    TCSharpCompilerOptionsFrame();

    TComboBox cbFileAlign{*this, "cbFileAlign", "File Align", {"Default", "512", "1024", "2048", "4096", "8192"}};
    TLabel lblFileAlignUnit{*this, "lblFileAlignUnit", "bytes"};
    TDefinesGroup Defines{*this};
    TCodePageGroup CodePage{*this};
    TCheckBox chkIncremental{*this, "chkIncremental", "Enable Incremental Compilation"};
    TMainClassGroup MainClass{*this, "Main Method", "(For compiling an .exe with more than one Main method)"};
    TCheckBox chkNoConfig{*this, "chkNoConfig", "Do not compile with the csc.rsp file (/noconfig)"};
    TNoLogoGroup NoLogo{*this};
    TCheckBox chkUnsafe{*this, "chkUnsafe", "Enable Unsafe Mode"};
    TUTF8Group UTF8{*this};
};
