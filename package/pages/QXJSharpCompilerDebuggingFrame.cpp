#include "package/pages/QXJSharpCompilerDebuggingFrame.h"

#include "package/compiler/QXJSharpDotNetCompilerAction.h"

TJSharpCompilerDebuggingFrame::TJSharpCompilerDebuggingFrame()
{
    Bind(WarningLevel.cbWarningLevel, &TQXJSharpOptions::WarningLevel);
}
