#include "package/pages/QXNGen20UpdateFrame.h"

#include "package/sdktools/QXNGen20BaseAction.h"

TNGen20UpdateFrame::TNGen20UpdateFrame()
{
    Bind(boxQueue, &TQXNGen20BaseAction::Queued);
    Bind(boxVerbose, &TQXNGen20BaseAction::Verbose);
}
