#include "package/pages/QXCSharpCompilerAssembliesFrame.h"

#include "package/compiler/QXCSharpCompilerAction.h"

TCSharpCompilerAssembliesFrame::TCSharpCompilerAssembliesFrame()
{
    Bind(chkDoNotImport, &TQXCSharpOptions::NoSTDLib);
}
