#include "package/pages/QXVBDotNetCompilerOptionsFrame.h"

#include "package/compiler/QXVBDotNetCompilerAction.h"
#include "package/pages/QXPageSteps.h"

TVBDotNetCompilerOptionsFrame::TVBDotNetCompilerOptionsFrame()
{
    Bind(chkVerbose, &TQXVBDotNetOptions::Verbose);
    Bind(txtSDKPath, &TQXManagedCompilerAction::SDKPath);
    Bind(txtRootNamespace, &TQXManagedCompilerAction::RootNameSpace);
    BrowseFolder(txtSDKPath, "Select the SDK directory");
}
