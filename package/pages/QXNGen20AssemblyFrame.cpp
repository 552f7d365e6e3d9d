#include "package/pages/QXNGen20AssemblyFrame.h"

#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "package/sdktools/QXNGen20BaseAction.h"

TNGen20AssemblyFrame::TNGen20AssemblyFrame()
{
    Bind(btnUseAssPath, btnUseAssName, &TQXNGen20AssemblyAction::UseAssemblyName);
    Bind(txtAssPath, &TQXNGen20AssemblyAction::AssemblyPath);
    Bind(txtAssName, &TQXNGen20AssemblyAction::AssemblyName);
    BrowseAsIs(txtAssPath, FileFilters::ExecutablesAndLibraries, "Select Assembly");
}
