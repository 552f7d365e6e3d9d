#pragma once

#include "package/pages/QXFreeFormFrame.h"
#include "package/sdktools/QXDotNetALAction.h"

class TALGenericFrame final : public TFreeFormFrame<TALGenericAL>
{
public:
    TALGenericFrame() : TFreeFormFrame("AL.EXE command line options") {}
    [[nodiscard]] std::string PageName() const override { return "Run AL.EXE"; }
};
