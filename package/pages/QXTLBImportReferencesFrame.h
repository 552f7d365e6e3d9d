#pragma once

#include "host/QXPages.h"

class TTLBImportReferencesFrame final : public TFrame
{
public:
    TTLBImportReferencesFrame();
    [[nodiscard]] std::string PageName() const override { return "References"; }

    TMemo memReferences{*this, "memReferences"};
    TCheckBox chkStrict{*this, "chkStrict", "Only use assemblies specified here"};
    TEdit txtRef{*this, "txtRef"};
};
