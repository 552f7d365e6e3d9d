#pragma once

#include "package/pages/QXDotNetToolBaseFrame.h"
#include "package/sdktools/QXASPNetCompilerAction.h"

class TASPNetCompilerFrame final : public TDotNetToolBaseFrame
{
public:
    TASPNetCompilerFrame();
    [[nodiscard]] std::string PageName() const override { return "Compiler Options"; }

    TRadioButton btnUseFullMetabase{*this, "btnUseFullMetabase", "Full IIS Metabase Path: (-m)"};
    TEdit txtMetabasePath{*this, "txtMetabasePath"};
    TRadioButton btnUseVirtual{*this, "btnUseVirtual", "IIS Virtual Path: (-v)"};
    TEdit txtVirtualPath{*this, "txtVirtualPath"};
    TPanel pnlPhysical{*this, "pnlPhysical"};
    TRadioButton btnNoPhysical{pnlPhysical, "btnNoPhysical", "Physical directory determined by IIS (default site)"};
    TRadioButton btnUsePhysical{pnlPhysical, "btnUsePhysical", "Use physical directory: (-p)"};
    TEdit txtPhysicalPath{pnlPhysical, "txtPhysicalPath"};

private:
    void ShowSpecifier(TPathSpecifier Specifier);
    [[nodiscard]] TPathSpecifier ShownSpecifier() const;
};
