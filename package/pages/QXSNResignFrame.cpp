#include "package/pages/QXSNResignFrame.h"

#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "package/sdktools/QXDotNetSNAction.h"

TSNResignFrame::TSNResignFrame()
{
    Bind(txtAssembly, &TSNResignAssembly::Assembly);
    Bind(rbContainer, rbKeyFile, &TSNResignAssembly::UseKeyFile);
    Bind(txtKeyfile, &TSNResignAssembly::KeyFile);
    Bind(txtContainer, &TSNResignAssembly::Container);
    Browse(txtAssembly, FileFilters::Assembly);
    Browse(txtKeyfile, FileFilters::KeyFile);
    Browse(txtContainer);
}
