#pragma once

#include "package/pages/QXFreeFormFrame.h"
#include "package/sdktools/QXDotNetSNAction.h"

class TSNGenericFrame final : public TFreeFormFrame<TSNGenericSN>
{
public:
    TSNGenericFrame() : TFreeFormFrame("SN.EXE Command Line Options") {}
    [[nodiscard]] std::string PageName() const override { return "Run SN.EXE"; }
};
