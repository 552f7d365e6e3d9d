#include "package/pages/QXDotNetOptionsFrame.h"

#include "package/plugin/QXDotNetAction.h"

void TDotNetOptionsFrame::ReadOptions(TQXOptionsObject& Options)
{
    cbSDKVersions.Items = InstalledVersions();
    if (!cbSDKVersions.SelectText(static_cast<TQXDotNetOptions&>(Options).GetDefaultSDKVersion()))
        cbSDKVersions.Select(0);
}

void TDotNetOptionsFrame::WriteOptions(TQXOptionsObject& Options)
{
    if (cbSDKVersions.Selected())
        static_cast<TQXDotNetOptions&>(Options).SetDefaultSDKVersion(cbSDKVersions.Text);
}
