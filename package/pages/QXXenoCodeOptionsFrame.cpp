#include "package/pages/QXXenoCodeOptionsFrame.h"

#include "package/pages/QXPageSteps.h"

TXenoCodeOptionsFrame::TXenoCodeOptionsFrame()
{
    Bind(edXenoCode, "XenoCode2004Exe");
    Bind(edtXenoCode2005Location, "XenoCode2005Exe");
    Bind(edtXenoCode2006Location, "XenoCode2006Exe");
    Bind({&rbXenoCode2004, &rbXenoCode2005, &rbXenoCode2006}, "XenoCodeVersion");

    constexpr const char* Title = "Select the XenoCode executable";
    BrowseAsIs(edXenoCode, "XenoCode Executable(xc.exe)|xc.exe|All files|*.*", Title);
    BrowseAsIs(edtXenoCode2005Location, "XenoCode Command Line Exe(xcc.exe)|xcc.exe|All files|*.*", Title);
    BrowseAsIs(edtXenoCode2006Location, "XenoCode Command Line Exe(xbuild.exe)|xbuild.exe|All files|*.*", Title);
}
