#include "package/pages/QXDemeanorPEFrame.h"

#include "package/analysis/QXDemeanorAction.h"
#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "platform/Paths.h"

TDemeanorPEFrame::TDemeanorPEFrame()
{
    BindAll();
    BrowseAsIs(edAssembly, "Assembly files (*.exe;*.dll)|*.exe;*.dll|All files (*.*)|*.*");
    BrowseFolder(edOutFolder, "Select Directory");
    BrowseAsIs(edReportFile, FileFilters::ReportFiles);
    edAssembly.OnChange = [this] { ProposeTargets(); };
}

void TDemeanorPEFrame::BindAll()
{
    Bind(edAssembly, &TQXDemeanorAction::AssemblyName);
    Bind(edOutFolder, &TQXDemeanorAction::OutputFolder);
    Bind(edReportFile, &TQXDemeanorAction::ReportFile);
    Bind({&rbNames, &rbNumbers, &rbUnicode}, &TQXDemeanorAction::Naming);
    Bind(cbObfuscateAll, &TQXDemeanorAction::ObfuscateAll);
    Bind(cbCompilerControlled, &TQXDemeanorAction::CompilerControlled);
    Bind(cbMetadata, &TQXDemeanorAction::InSitu);
    Bind(cbForce, &TQXDemeanorAction::ForceParameters);
    Bind(cbVerbose, &TQXDemeanorAction::Verbose);
    Bind(lbCategories, &TQXDemeanorAction::ObfuscateCategories);
}

/// What is empty is filled in beside the assembly.
void TDemeanorPEFrame::ProposeTargets()
{
    if (edOutFolder.Text.empty())
        edOutFolder.Text = Paths::Folder(edAssembly.Text) + "Demeanor";
    if (edReportFile.Text.empty())
        edReportFile.Text = Paths::WithTrailing(edOutFolder.Text) + Paths::BareName(edAssembly.Text) + "Report.xml";
}
