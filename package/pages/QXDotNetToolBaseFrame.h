#pragma once

#include "package/pages/QXSDKVersionFrame.h"

/// Base of the pages that are first in their action: chooses its .NET version among those that will do.
class TDotNetToolBaseFrame : public TSDKVersionFrame
{
public:
    void InitPage(TCustomQXAction& Action) override { Version.Init(static_cast<TQXDotNetAction&>(Action)); }

protected:
    TDotNetToolBaseFrame() : TSDKVersionFrame(TSDKVersionGroup::TVersions::Valid) {}
};
