#include "package/pages/QXNAntFrame.h"

#include "package/pages/QXPageSteps.h"
#include "package/runners/QXNAntAction.h"

TNAntFrame::TNAntFrame()
{
    Bind(txtBuildFile, &TNAntAction::BuildFile);
    Bind(txtFramework, &TNAntAction::Framework);
    Bind(txtTargets, &TNAntAction::Targets);
    Bind(veProps, &TNAntAction::Properties);
    Bind(cbLogLevel, &TNAntAction::LogLevel);
    Bind(cbIndent, &TNAntAction::IndentLevel);
    Bind(chkNoLogo, &TNAntAction::NoLogo);
    Bind(chkLogFile, &TNAntAction::OutputToLog);
    Bind(txtLogFile, &TNAntAction::LogFile);
    BrowseByDialog(txtBuildFile, "Build Files (*.build)|*.build|XML Files (*.xml)|*.xml|Text Files "
                                 "(*.txt)|*.txt|All files|*.*");
    txtLogFile.OnBrowse = [this] { GetFileByDialog(txtLogFile, {.Kind = TQXDialogKind::Save}); };
}
