#include "package/pages/QXSNVerifySNFrame.h"

#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "package/sdktools/QXDotNetSNAction.h"

TSNVerifySNFrame::TSNVerifySNFrame()
{
    Bind(txtAssembly, &TSNVerifyAssembly::Assembly);
    Bind(chkForce, &TSNVerifyAssembly::Force);
    Bind(chkReverseAction, &TSNVerifyAssembly::FailIfValid);
    Browse(txtAssembly, FileFilters::Assembly);
}
