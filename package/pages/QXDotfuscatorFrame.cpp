#include "package/pages/QXDotfuscatorFrame.h"

#include "package/analysis/QXDotfuscatorAction.h"
#include "package/pages/QXPageSteps.h"

TDotfuscatorFrame::TDotfuscatorFrame()
{
    Bind(edConfigFile, &TQXDotfuscatorAction::ConfigurationFile);
    Bind(cbVerbosity, &TQXDotfuscatorAction::Verbosity);
    Bind(vleProperties, &TQXDotfuscatorAction::Properties);
    Bind(chkInvestigateOnly, &TQXDotfuscatorAction::InvestigateOnly);
    Bind(chkShowWindow, &TQXDotfuscatorAction::ShowDotfuscatorWindow);
    BrowseAsIs(edConfigFile, "Configuration files (*.xml)|*.xml|All files (*.*)|*.*)");
}
