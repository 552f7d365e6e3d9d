#include "package/pages/QXJSharpCompilerOptionsFrame.h"

#include "package/compiler/QXJSharpDotNetCompilerAction.h"

TJSharpCompilerOptionsFrame::TJSharpCompilerOptionsFrame()
{
    Bind(chkDisableLang, &TQXJSharpOptions::DisableLangExt);
    Bind(ValueListEditor1, &TQXJSharpOptions::JCPA);
}
