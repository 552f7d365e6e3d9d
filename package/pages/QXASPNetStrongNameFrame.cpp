#include "package/pages/QXASPNetStrongNameFrame.h"

#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "package/sdktools/QXASPNetCompilerAction.h"

TASPNetStrongNameFrame::TASPNetStrongNameFrame()
{
    Bind({&btnNoStrongName, &btnUseKeyFile, &btnUseKeyContainer}, &TASPNetCompilerAction::UseStrongName);
    Bind(txtKeyFilePath, &TASPNetCompilerAction::KeyFilePath);
    Bind(txtKeyContainerName, &TASPNetCompilerAction::KeyContainerName);
    Bind(boxAllowPartially, &TASPNetCompilerAction::AllowPartiallyTrusted);
    Bind(boxDelaySign, &TASPNetCompilerAction::DelaySigning);
    BrowseAsIs(txtKeyFilePath, FileFilters::KeyFileOrAll, "Select Key File");
    EnableWhile(txtKeyFilePath, btnUseKeyFile);
    EnableWhile(txtKeyContainerName, btnUseKeyContainer);
    EnableWhile(boxAllowPartially, btnUseKeyContainer);
    EnableWhile(boxDelaySign, btnUseKeyContainer);
}
