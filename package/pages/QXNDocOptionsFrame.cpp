#include "package/pages/QXNDocOptionsFrame.h"

#include "package/pages/QXPageSteps.h"

TNDocOptionsFrame::TNDocOptionsFrame()
{
    Bind(txtLocation, "NDocLocation");
    Bind(txtNDoc13Location, "NDoc13Location");
    Bind({&rbNDoc12, &rbNDoc13}, "DefaultNDocVer");
    for (TEdit* Location : {&txtLocation, &txtNDoc13Location})
        BrowseTool(*Location, "NDoc Console (NDocConsole.exe)|ndocconsole.exe");
}
