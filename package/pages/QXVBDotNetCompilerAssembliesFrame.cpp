#include "package/pages/QXVBDotNetCompilerAssembliesFrame.h"

#include "package/compiler/QXVBDotNetCompilerAction.h"
#include "package/pages/QXPageSteps.h"

TVBDotNetCompilerAssembliesFrame::TVBDotNetCompilerAssembliesFrame()
{
    Bind(txtImports, &TQXVBDotNetOptions::Imports);
    Bind(txtKeyContainer, &TQXVBDotNetOptions::KeyContainer);
    Bind(txtKeyfile, &TQXVBDotNetOptions::KeyFile);
    Bind(chkdelaysign, &TQXVBDotNetOptions::DelaySign);
    BrowseList(txtImports,
               {.Title = "Edit Namespaces Import", .Caption = "Namespaces", .Mask = "*.*", .IsWords = true});
    Browse(txtKeyContainer);
    Browse(txtKeyfile);
}
