#include "package/pages/QXVBDOTNETCompilerMainFrame.h"

#include "package/compiler/QXVBDotNetCompilerAction.h"

TVBDOTNETCompilerMainFrame::TVBDOTNETCompilerMainFrame() : TListCompilerMainFrame("vb")
{
    Bind(chkTargetCF, &TQXVBDotNetOptions::TargetCF);
}
