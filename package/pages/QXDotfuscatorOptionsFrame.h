#pragma once

#include "package/pages/QXToolOptionsFrame.h"

class TDotfuscatorOptionsFrame final : public TToolOptionsFrame
{
public:
    TDotfuscatorOptionsFrame()
        : TToolOptionsFrame({.PageName = "Dotfuscator",
                             .Caption = "Dotfuscator Location",
                             .Property = "DotfuscatorExe",
                             .Filter = "Dotfuscator.Exe|Dotfuscator.Exe"})
    {}
};
