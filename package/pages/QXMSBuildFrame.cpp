#include "package/pages/QXMSBuildFrame.h"

#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "package/sdktools/QXMSBuildAction.h"

TMSBuildFrame::TMSBuildFrame()
{
    Bind(txtBuildFile, &TMSBuildAction::BuildFile);
    Bind(veProps, &TMSBuildAction::Properties);
    Bind(txtTargets, &TMSBuildAction::Targets);
    Bind(cbLogLevel, &TMSBuildAction::LogLevel);
    Bind(chkNoLogo, &TMSBuildAction::NoLogo);
    Bind(chkRestricted, &TMSBuildAction::Restricted);
    BrowseByDialog(txtBuildFile, FileFilters::MSBuildProjects);
}
