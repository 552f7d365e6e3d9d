#pragma once

#include "package/pages/QXToolOptionsFrame.h"

class TFxCopOptionsFrame final : public TToolOptionsFrame
{
public:
    TFxCopOptionsFrame()
        : TToolOptionsFrame({.PageName = "FxCop",
                             .Caption = "FxCop Location",
                             .Property = "FxCopExe",
                             .Filter = "FxCopCmd.Exe|FxCopCmd.exe"})
    {}
};
