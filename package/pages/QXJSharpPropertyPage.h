#pragma once

#include "package/pages/QXProjectCompilerFrame.h"

class TJSharpPropertyPage final : public TProjectCompilerFrame
{
public:
    [[nodiscard]] std::string PageName() const override { return "J# Project"; }
};
