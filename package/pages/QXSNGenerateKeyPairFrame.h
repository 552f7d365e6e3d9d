#pragma once

#include "package/pages/QXDotNetToolBaseFrame.h"

class TSNGenerateKeyPairFrame final : public TDotNetToolBaseFrame, public IQXPageValidation
{
public:
    TSNGenerateKeyPairFrame();
    [[nodiscard]] std::string PageName() const override { return "Generate Key Pair"; }
    [[nodiscard]] bool Validate() override;

    TLabel lblFile{*this, "lblFile", "Output File"};
    TEdit txtFile{*this, "txtFile"};
};
