#include "package/pages/QXTLBImportSNFrame.h"

#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "package/sdktools/QXDotNetTLBImpAction.h"

TTLBImportSNFrame::TTLBImportSNFrame()
{
    Bind(txtPublicKeyFile, &TTLBImportAction::PublicKeyFile);
    Bind(txtKeyFile, &TTLBImportAction::KeyFile);
    Bind(txtKeyContainerFile, &TTLBImportAction::KeyContainer);
    Bind(chkDelaySign, &TTLBImportAction::DelaySign);
    Browse(txtPublicKeyFile, FileFilters::KeyFileOrAll);
    Browse(txtKeyFile, FileFilters::KeyFileOrAll);
    Browse(txtKeyContainerFile, FileFilters::AllFiles);
}
