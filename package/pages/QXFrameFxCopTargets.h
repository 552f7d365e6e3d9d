#pragma once

#include "package/pages/QXFxCopFrame.h"

class TFrameFxCopTargets final : public TFxCopFrame
{
public:
    TFrameFxCopTargets();
    [[nodiscard]] std::string PageName() const override { return "Targets"; }

    TEdit edProjectFile{*this, "edProjectFile"};
    TListBox lbTargets{*this, "lbTargets"};
    TListButtons Buttons{*this, lbTargets, {"Add", "Edit...", "Delete"}};
};
