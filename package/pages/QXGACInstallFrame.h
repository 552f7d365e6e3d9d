#pragma once

#include "package/pages/QXGACFrame.h"

class TGACInstallFrame final : public TGACFrame
{
public:
    TGACInstallFrame();
    [[nodiscard]] std::string PageName() const override { return "GAC Install"; }
    [[nodiscard]] bool Validate() override;

    TRadioButton rbAssemblyPath{*this, "rbAssemblyPath",
                                "Assembly Path (name of a file which contains an assembly manifest)"};
    TEdit txtAssemblyPath{*this, "txtAssemblyPath"};
    TRadioButton rbAssemblyListfile{*this, "rbAssemblyListfile", "Assembly ListFile"};
    TEdit txtAssemblyListFile{*this, "txtAssemblyListFile"};
    TGACReferenceGroup Reference{*this, "Force Re-install (will overwrite an existing assembly with the same name)",
                                 "Add reference count"};
};
