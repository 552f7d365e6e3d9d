#include "package/pages/QXCSharpCompilerDebuggingFrame.h"

#include "package/compiler/QXCSharpCompilerAction.h"

TCSharpCompilerDebuggingFrame::TCSharpCompilerDebuggingFrame()
{
    Bind(WarningLevel.cbWarningLevel, &TQXCSharpOptions::WarningLevel);
    Bind(chkChecked, &TQXCSharpOptions::Checked);
    Bind(chkFullPath, &TQXCSharpOptions::FullPaths);
}
