#pragma once

#include "package/pages/QXSDKVersionFrame.h"

class TGACListFrame final : public TSDKVersionFrame
{
public:
    TGACListFrame();
    [[nodiscard]] std::string PageName() const override { return "GAC Download Cache"; }

    TRadioButton rbDelete{*this, "rbDelete", "Deletes the contents of the download cache"};
    TRadioButton rbList{*this, "rbList", "Lists the contents of the downloaded files cache"};
};
