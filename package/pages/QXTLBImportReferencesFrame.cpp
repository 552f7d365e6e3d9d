#include "package/pages/QXTLBImportReferencesFrame.h"

#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "package/sdktools/QXDotNetTLBImpAction.h"

TTLBImportReferencesFrame::TTLBImportReferencesFrame()
{
    Bind(memReferences, &TTLBImportAction::References);
    Bind(chkStrict, &TTLBImportAction::StrictRef);
    Browse(txtRef, FileFilters::AssembliesOnly);
    AcceptInto(memReferences, txtRef);
}
