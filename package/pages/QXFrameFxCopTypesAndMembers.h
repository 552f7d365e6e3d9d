#pragma once

#include "package/pages/QXFxCopFrame.h"

class TFrameFxCopTypesAndMembers final : public TFxCopFrame
{
public:
    TFrameFxCopTypesAndMembers();
    [[nodiscard]] std::string PageName() const override { return "Types and Members"; }

    TListBox lbTypes{*this, "lbTypes"};
    TListButtons Buttons{*this, lbTypes, {"Add...", "Edit...", "Delete"}};

private:
    void AddType();
};
