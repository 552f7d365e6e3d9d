#include "package/pages/QXJSharpCompilerAssembliesFrame.h"

#include "package/compiler/QXJSharpDotNetCompilerAction.h"

TJSharpCompilerAssembliesFrame::TJSharpCompilerAssembliesFrame()
{
    Bind(chkSecureScoping, &TQXJSharpOptions::SecureScoping);
}
