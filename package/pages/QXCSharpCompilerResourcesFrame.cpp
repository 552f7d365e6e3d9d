#include "package/pages/QXCSharpCompilerResourcesFrame.h"

#include "package/pages/QXPageSteps.h"
TCSharpCompilerResourcesFrame::TCSharpCompilerResourcesFrame()
    : TListCompilerResourcesFrame("Create links to a managed resources")
{
    // This compiler's pages edit lists where those of the others choose one file.
    BrowseList(Icon.txtICOFile, {.Title = "Insert ico file into output file", .Caption = "Add Icons", .Mask = "*.ico"});
    BrowseList(Win32.txtWin32Res,
               {.Title = "Insert Resource Files into output file", .Caption = "Resource Files", .Mask = "*.res"});
}
