#include "package/pages/QXTLBExportFrame.h"

#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "package/sdktools/QXDotNetTLBExpAction.h"

TTLBExportFrame::TTLBExportFrame()
{
    Bind(txtAssembly, &TTLBExportAction::AssemblyName);
    Bind(txtOutput, &TTLBExportAction::OutputFile);
    Bind(txtCapFile, &TTLBExportAction::NamesCaseFile);
    Bind(chkNoLogo, &TTLBExportAction::NoLogo);
    Bind(chkNoSuccess, &TTLBExportAction::Silent);
    Browse(txtAssembly, FileFilters::Assembly);
    Browse(txtOutput, FileFilters::TypeLibraryFiles);
    Browse(txtCapFile, FileFilters::CapitalizationFile);
}
