#include "package/pages/QXCSharpCompilerMainFrame.h"

#include "package/compiler/QXCSharpCompilerAction.h"

TCSharpCompilerMainFrame::TCSharpCompilerMainFrame() : TListCompilerMainFrame("cs")
{
    Bind(txtDoco, &TQXCSharpOptions::DocFile);
    Browse(txtDoco, FileFilters::XmlFiles);
}
