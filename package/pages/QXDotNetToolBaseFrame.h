#pragma once

#include "host/QXPages.h"
#include "package/pages/QXPageSteps.h"
#include "package/pages/QXSDKVersionGroup.h"

/// Base of the pages that are first in their action: chooses its .NET version.
class TDotNetToolBaseFrame : public TFrame
{
public:
    void InitPage(TCustomQXAction& Action) override { FVersion.Init(static_cast<TQXDotNetAction&>(Action)); }
    void ReadActionData(TCustomQXAction& Action) override
    {
        TFrame::ReadActionData(Action);
        FVersion.Read(static_cast<TQXDotNetAction&>(Action));
    }
    void WriteActionData(TCustomQXAction& Action) override
    {
        FVersion.Write(static_cast<TQXDotNetAction&>(Action));
        TFrame::WriteActionData(Action);
    }

private:
    TSDKVersionGroup FVersion{*this, TSDKVersionGroup::TVersions::Valid};
};
