#pragma once

#include "package/pages/QXListCompilerFrames.h"

class TVBDotNetCompilerResourcesFrame final : public TListCompilerResourcesFrame
{
public:
    TVBDotNetCompilerResourcesFrame();
    [[nodiscard]] std::string PageName() const override { return "Resources && Language"; }

    TIconGroup Icon{*this};
    TWin32ResourcesGroup Win32{*this};
    TLabel lblLanguage{*this, "lblLanguage", "Language"};
    TCheckBox chkExplicit{*this, "chkExplicit", "Require Explicit declaration of variables"};
    TCheckBox chkStrict{*this, "chkStrict", "Enforce strict type sematics"};
    TComboBox cbStringCompare{
        *this, "cbStringCompare", "String Comparisons", {"Binary (default)", "Use Locale-specific text semantics"}};
};
