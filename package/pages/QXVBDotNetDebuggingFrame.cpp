#include "package/pages/QXVBDotNetDebuggingFrame.h"

#include "package/compiler/QXVBDotNetCompilerAction.h"

TVBDotNetDebuggingFrame::TVBDotNetDebuggingFrame()
{
    Bind(chkNoCode, &TQXVBDotNetOptions::Quiet);
    Bind(chkRemoveIntChecks, &TQXVBDotNetOptions::RemoveIntChecks);
}
