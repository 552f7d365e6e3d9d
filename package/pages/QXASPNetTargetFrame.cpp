#include "package/pages/QXASPNetTargetFrame.h"

#include "package/pages/QXPageSteps.h"
#include "package/sdktools/QXASPNetCompilerAction.h"

#include <initializer_list>

TASPNetTargetFrame::TASPNetTargetFrame()
{
    Bind(btnNoTargetDir, btnUseTargetDir, &TASPNetCompilerAction::UseTargetDir);
    Bind(txtTargetDir, &TASPNetCompilerAction::TargetDirPath);
    Bind(boxUpdate, &TASPNetCompilerAction::MakeUpdatable);
    Bind(boxOverwrite, &TASPNetCompilerAction::Overwrite);
    Bind(boxDebug, &TASPNetCompilerAction::Debug);
    Bind(boxRebuild, &TASPNetCompilerAction::FullRebuild);
    Bind(boxFixedNames, &TASPNetCompilerAction::FixedNames);
    BrowseFolder(txtTargetDir, "Select Target Directory");
    for (TControl* Control :
         std::initializer_list<TControl*>{&txtTargetDir, &boxUpdate, &boxOverwrite, &boxDebug, &boxFixedNames})
        EnableWhile(*Control, btnUseTargetDir);
    EnableWhile(boxRebuild, btnNoTargetDir);
    AddRule([this] { boxRebuild.Checked = boxRebuild.Checked || btnUseTargetDir.IsChecked(); });
}
