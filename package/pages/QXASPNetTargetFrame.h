#pragma once

#include "host/QXPages.h"

class TASPNetTargetFrame final : public TFrame
{
public:
    TASPNetTargetFrame();
    [[nodiscard]] std::string PageName() const override { return "Target"; }

    TRadioButton btnNoTargetDir{*this, "btnNoTargetDir", "Compile the application in-place"};
    TRadioButton btnUseTargetDir{*this, "btnUseTargetDir", "Compile the application to target directory:"};
    TEdit txtTargetDir{*this, "txtTargetDir"};
    TCheckBox boxUpdate{*this, "boxUpdate", "Create updatable application (-u)"};
    TCheckBox boxOverwrite{*this, "boxOverwrite", "Overwrite the target directory (-f)"};
    TCheckBox boxDebug{*this, "boxDebug", "Emit debug information (-d)"};
    TCheckBox boxRebuild{*this, "boxRebuild", "Fully rebuild target application (-c)"};
    TCheckBox boxFixedNames{*this, "boxFixedNames", "Use fixed names for compiled assemblies (-fixednames)"};
};
