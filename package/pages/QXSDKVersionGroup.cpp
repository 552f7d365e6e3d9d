#include "package/pages/QXSDKVersionGroup.h"

#include "package/plugin/QXDotNetOptionsImpl.h"

TSDKVersionGroup::TSDKVersionGroup(TContainer& Page, TVersions Versions)
    : pnlSDKVersion(Page, "pnlSDKVersion"), FVersions(Versions)
{
    cbSDKs.OnChange = [this] { rbUseSDK.Check(); };
}

void TSDKVersionGroup::Init(const TQXDotNetAction& Action)
{
    pnlSDKVersion.Visible = Action.GetDotNetToolType() != ttNone;
    if (Action.GetDotNetToolType() != ttFramework)
        return;
    lblSDKVer.Caption = "Framework Version";
    FDefaultCaption = "Use default Framework version";
    rbUseDefaultSDK.Caption = FDefaultCaption;
}

std::string TSDKVersionGroup::DefaultCaption(const TQXDotNetAction& Action) const
{
    if (FVersions == TVersions::All)
        return FDefaultCaption;
    const std::string Default = DotNetOptions().GetDefaultSDKVersion();
    const std::string Caption = FDefaultCaption + " (" + Default + ")";
    return Action.IsValidSDKVersion(Default) ? Caption : Caption + " (Action needs v" + Action.MinimumSDKVersion + ")";
}

void TSDKVersionGroup::Read(const TQXDotNetAction& Action)
{
    if (Action.GetDotNetToolType() == ttNone)
        return;
    (Action.OverrideSDKDefault ? rbUseSDK : rbUseDefaultSDK).Check();
    rbUseDefaultSDK.Caption = DefaultCaption(Action);
    cbSDKs.Items.clear();
    for (std::string& Version : InstalledVersions())
        if (FVersions == TVersions::All || Action.IsValidSDKVersion(Version))
            cbSDKs.Items.push_back(std::move(Version));
    if (!cbSDKs.SelectText(Action.GetDefaultSDKVersion()))
        cbSDKs.Select(0);
}

void TSDKVersionGroup::Write(TQXDotNetAction& Action) const
{
    if (Action.GetDotNetToolType() == ttNone)
        return;
    Action.OverrideSDKDefault = rbUseSDK.IsChecked();
    if (cbSDKs.Selected())
        Action.SetDefaultSDKVersion(cbSDKs.Text);
}
