#include "package/pages/QXASPNetCompilerFrame.h"

#include "package/pages/QXPageSteps.h"
#include "package/sdktools/QXASPNetCompilerAction.h"

TASPNetCompilerFrame::TASPNetCompilerFrame()
{
    BindMember(
        btnUseFullMetabase, &TASPNetCompilerAction::UsePathSpecifier,
        [this](TPathSpecifier Value) { ShowSpecifier(Value); },
        [this](TPathSpecifier& Value) { Value = ShownSpecifier(); });
    Bind(txtMetabasePath, &TASPNetCompilerAction::FullMetabasePath);
    Bind(txtVirtualPath, &TASPNetCompilerAction::VirtualDirPath);
    Bind(txtPhysicalPath, &TASPNetCompilerAction::PhysicalDirPath);
    BrowseFolder(txtPhysicalPath, "Select Physical Directory");
    EnableWhile(txtMetabasePath, btnUseFullMetabase);
    EnableWhile(txtVirtualPath, btnUseVirtual);
    EnableWhile(btnNoPhysical, btnUseVirtual);
    EnableWhile(btnUsePhysical, btnUseVirtual);
    EnableWhile(txtPhysicalPath, [this] { return btnUsePhysical.Enabled && btnUsePhysical.IsChecked(); });
}

void TASPNetCompilerFrame::ShowSpecifier(TPathSpecifier Specifier)
{
    (Specifier == apMetabase ? btnUseFullMetabase : btnUseVirtual).Check();
    (Specifier == apVirtualPhysical ? btnUsePhysical : btnNoPhysical).Check();
}

TPathSpecifier TASPNetCompilerFrame::ShownSpecifier() const
{
    if (btnUseFullMetabase.IsChecked())
        return apMetabase;
    return btnUsePhysical.IsChecked() ? apVirtualPhysical : apVirtual;
}
