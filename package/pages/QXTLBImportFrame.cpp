#include "package/pages/QXTLBImportFrame.h"

#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "package/sdktools/QXDotNetTLBImpAction.h"

TTLBImportFrame::TTLBImportFrame()
{
    Bind(txtAssembly, &TTLBImportAction::TypeLibraryName);
    Bind(txtResourceID, &TTLBImportAction::ResourceID);
    Bind(txtOutput, &TTLBImportAction::AssemblyOutFile);
    Bind(edtNamespace, &TTLBImportAction::Namespace);
    Bind(edtVersionNum, &TTLBImportAction::AsmVersion);
    Bind(chkUnsafe, &TTLBImportAction::AllowUnsafe);
    Bind(chkPrimary, &TTLBImportAction::Primary);
    Bind(chkSysArray, &TTLBImportAction::SysArray);
    Bind(chkTransform, &TTLBImportAction::Transform);
    Browse(txtAssembly, FileFilters::TypeLibrariesAndDlls);
    Browse(txtOutput, FileFilters::AssembliesOrAll);
}
