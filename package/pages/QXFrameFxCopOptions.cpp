#include "package/pages/QXFrameFxCopOptions.h"

#include "package/analysis/QXFxCopAction.h"
#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"

TFrameFxCopOptions::TFrameFxCopOptions()
{
    Bind(edOutput, &TQXFxCopAction::OutputFilename);
    Bind(edPlatform, &TQXFxCopAction::PlatformFolder);
    Bind(edXSLT, &TQXFxCopAction::TransformationXSL);
    Bind(chkCapture, &TQXFxCopAction::CaptureOutput);
    Bind(chkSummary, &TQXFxCopAction::SummaryReport);
    Bind(chkUpdateProject, &TQXFxCopAction::UpdateProjectFile);
    Bind(chkVerbose, &TQXFxCopAction::VerboseReport);
    BrowseAsIs(edOutput, FileFilters::ReportFiles);
    BrowseFolder(edPlatform,
                 "Select the folder containing the mscorlib.dll used when compiling the target assemblies:");
    BrowseAsIs(edXSLT, "XSL files (*,xsl;*.xslt)|*.xsl;*.xslt|All files (*.*)|*.*");
}
