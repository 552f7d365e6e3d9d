#include "package/pages/QXCSharpCompilerOptionsFrame.h"

#include "package/compiler/QXCSharpCompilerAction.h"

TCSharpCompilerOptionsFrame::TCSharpCompilerOptionsFrame()
{
    Bind(cbFileAlign, &TQXCSharpOptions::FileAlign);
    Bind(chkIncremental, &TQXCSharpOptions::Incremental);
    Bind(chkNoConfig, &TQXCSharpOptions::NoConfig);
    Bind(chkUnsafe, &TQXCSharpOptions::CompileUnsafe);
}
