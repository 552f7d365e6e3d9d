#pragma once

#include "package/pages/QXFreeFormFrame.h"
#include "package/sdktools/QXDotNetASPdotNETIISRegAction.h"

class TASPdotNetIISInstallFrame final : public TFreeFormFrame<TASPIISRegGeneric>
{
public:
    TASPdotNetIISInstallFrame() : TFreeFormFrame("Aspnet_regiis.exe Command Line Options") {}
    [[nodiscard]] std::string PageName() const override { return "ASP .Net IIS Install"; }
};
