#include "package/pages/QXTLBImpLoggingFrame.h"

#include "package/sdktools/QXDotNetTLBImpAction.h"

TTLBImpLoggingFrame::TTLBImpLoggingFrame()
{
    Bind(chkNoLogo, &TTLBImportAction::NoLogo);
    Bind(chkSilent, &TTLBImportAction::Silent);
    Bind(chkVerbose, &TTLBImportAction::Verbose);
}
