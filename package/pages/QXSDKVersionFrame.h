#pragma once

#include "host/QXPages.h"
#include "package/pages/QXSDKVersionGroup.h"

/// Base of the pages with a group for the .NET version of their action.
class TSDKVersionFrame : public TFrame
{
public:
    void ReadActionData(TCustomQXAction& Action) override
    {
        TFrame::ReadActionData(Action);
        Version.Read(static_cast<TQXDotNetAction&>(Action));
    }
    void WriteActionData(TCustomQXAction& Action) override
    {
        Version.Write(static_cast<TQXDotNetAction&>(Action));
        TFrame::WriteActionData(Action);
    }

protected:
    explicit TSDKVersionFrame(TSDKVersionGroup::TVersions Versions = TSDKVersionGroup::TVersions::All)
        : Version(*this, Versions)
    {}
    TSDKVersionGroup Version;
};
