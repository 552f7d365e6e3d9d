#include "package/pages/QXSNInstallKeyPairFrame.h"

#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "package/sdktools/QXDotNetSNAction.h"

TSNInstallKeyPairFrame::TSNInstallKeyPairFrame()
{
    Bind(txtKeyfile, &TSNInstallKeyPair::KeyFile);
    Bind(txtContainerFile, &TSNInstallKeyPair::ContainerFile);
    Browse(txtKeyfile, FileFilters::KeyFile);
    Browse(txtContainerFile);
}
