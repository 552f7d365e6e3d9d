#include "package/pages/QXVBDotNetCompilerResourcesFrame.h"

#include "package/compiler/QXVBDotNetCompilerAction.h"
#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"

TVBDotNetCompilerResourcesFrame::TVBDotNetCompilerResourcesFrame()
{
    Browse(Icon.txtICOFile, FileFilters::IconFiles);
    Bind(chkExplicit, &TQXVBDotNetOptions::OptionExplicit);
    Bind(chkStrict, &TQXVBDotNetOptions::OptionStrict);
    Bind(cbStringCompare, &TQXVBDotNetOptions::OptionCompare);
}
