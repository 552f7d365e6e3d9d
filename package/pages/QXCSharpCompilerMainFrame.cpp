#include "package/pages/QXCSharpCompilerMainFrame.h"

#include "package/compiler/QXCSharpCompilerAction.h"
#include "package/pages/QXPageSteps.h"

TCSharpCompilerMainFrame::TCSharpCompilerMainFrame() : TListCompilerMainFrame("cs")
{
    Bind(txtDoco, &TQXCSharpOptions::DocFile);
    Browse(txtDoco, FileFilters::XmlFiles);
}
