#pragma once

#include "package/pages/QXFxCopFrame.h"

class TFrameFxCopRules final : public TFxCopFrame
{
public:
    TFrameFxCopRules();
    [[nodiscard]] std::string PageName() const override { return "Rules"; }

    TListBox lbRules{*this, "lbRules"};
    TListButtons Buttons{*this, lbRules, {"Add", "Edit...", "Delete"}};
};
