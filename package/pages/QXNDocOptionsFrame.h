#pragma once

#include "host/QXPages.h"

class TNDocOptionsFrame final : public TOptionsFrame
{
public:
    TNDocOptionsFrame();
    [[nodiscard]] std::string GetPageName() const override { return "NDoc"; }

    TEdit txtLocation{*this, "txtLocation", "NDoc 1.2"};
    TEdit txtNDoc13Location{*this, "txtNDoc13Location", "NDoc 1.3"};
    TLabel lblDefaultNDocVer{*this, "lblDefaultNDocVer", "Default NDoc Version"};
    TRadioButton rbNDoc12{*this, "rbNDoc12", "NDoc 1.2"};
    TRadioButton rbNDoc13{*this, "rbNDoc13", "NDoc 1.3"};
};
