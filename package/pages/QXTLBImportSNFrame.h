#pragma once

#include "host/QXPages.h"

class TTLBImportSNFrame final : public TFrame
{
public:
    TTLBImportSNFrame();
    [[nodiscard]] std::string PageName() const override { return "Strong Name"; }

    TEdit txtPublicKeyFile{*this, "txtPublicKeyFile", "Public Key File"};
    TEdit txtKeyFile{*this, "txtKeyFile", "Key File"};
    TEdit txtKeyContainerFile{*this, "txtKeyContainerFile", "Key Container"};
    TCheckBox chkDelaySign{*this, "chkDelaySign", "Delay Sign"};
};
