#pragma once

#include "package/pages/QXGACFrame.h"

class TGACUninstallFrame final : public TGACFrame
{
public:
    TGACUninstallFrame();
    [[nodiscard]] std::string PageName() const override { return "GAC Uninstall"; }
    [[nodiscard]] bool Validate() override;

    TRadioButton rbAssemblyName{*this, "rbAssemblyName", "Assembly Name"};
    TEdit txtAssemblyName{*this, "txtAssemblyName"};
    TRadioButton rbAssemblyPath{*this, "rbAssemblyPath", "Assembly Path"};
    TEdit txtAssemblyPath{*this, "txtAssemblyPath"};
    TRadioButton rbAssemblyListfile{*this, "rbAssemblyListfile", "Assembly ListFile"};
    TEdit txtAssemblyListFile{*this, "txtAssemblyListFile"};
    TGACReferenceGroup Reference{*this, "Force Un-install (removes all references to the assembly)",
                                 "Uninstall reference to assembly"};
};
