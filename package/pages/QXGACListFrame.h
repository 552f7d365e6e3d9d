#pragma once

#include "host/QXPages.h"
#include "package/pages/QXSDKVersionGroup.h"

class TGACListFrame final : public TFrame
{
public:
    TGACListFrame();
    [[nodiscard]] std::string PageName() const override { return "GAC Download Cache"; }
    void ReadActionData(TCustomQXAction& Action) override;
    void WriteActionData(TCustomQXAction& Action) override;

    TRadioButton rbDelete{*this, "rbDelete", "Deletes the contents of the download cache"};
    TRadioButton rbList{*this, "rbList", "Lists the contents of the downloaded files cache"};
    TSDKVersionGroup Version{*this, TSDKVersionGroup::TVersions::All};
};
