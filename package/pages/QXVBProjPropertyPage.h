#pragma once

#include "package/pages/QXProjectCompilerFrame.h"

class TVBProjPropertyPage final : public TProjectCompilerFrame
{
public:
    [[nodiscard]] std::string PageName() const override { return "VB.NET Project"; }
};
