#pragma once

#include "package/pages/QXProjectCompilerFrame.h"

class TCSharpBuilderPropertyPage final : public TProjectCompilerFrame
{
public:
    [[nodiscard]] std::string PageName() const override { return "C# Builder Project"; }
};
