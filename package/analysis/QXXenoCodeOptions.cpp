#include "package/analysis/QXXenoCodeOptions.h"

#include "package/compiler/QXDotNetUtils.h"

TQXXenoCodeOptions::TQXXenoCodeOptions()
{
    PublishTool("XenoCode2004Exe", FXenoCode2004Exe, "Full path of xc.exe").StoredAs("XenoCodeLocation");
    PublishTool("XenoCode2005Exe", FXenoCode2005Exe, "Full path of xcc.exe").StoredAs("XenoCode2005Location");
    PublishTool("XenoCode2006Exe", FXenoCode2006Exe, "Full path of xbuild.exe").StoredAs("XenoCode2006Location");
    Publish("XenoCodeVersion", FXenoCodeVersion, "Generation of the tool that new actions run");
}

/// Not by the base's: a text that names no version is left alone.
void TQXXenoCodeOptions::LoadOptions(IQXOptionsReader& Reader)
{
    constexpr std::string_view Users = "\\SOFTWARE\\Microsoft\\Installer\\Assemblies";
    constexpr std::string_view Classes = "\\Installer\\Assemblies";
    SetModified(false);
    const bool Has2004 = LoadLocation(Reader, FXenoCode2004Exe, "xc.exe", TRegistryRoot::CurrentUser, Users);
    const bool Has2005 = LoadLocation(Reader, FXenoCode2005Exe, "xcc.exe", TRegistryRoot::CurrentUser, Users);
    const bool Has2006 = LoadLocation(Reader, FXenoCode2006Exe, "xbuild.exe", TRegistryRoot::ClassesRoot, Classes);

    FXenoCodeVersion = Has2004 ? XenoCode2004 : XenoCode2005;
    const std::string Stored = Reader.ReadString("XenoCodeVersion", "");
    if (QXPropertyDetail::FindElement(Stored, FXenoCodeVersion) || !Stored.empty())
        return;
    if (Has2006 || (!Has2005 && !Has2004))
        FXenoCodeVersion = XenoCode2006;
    else
        FXenoCodeVersion = Has2005 ? XenoCode2005 : XenoCode2004;
    SetModified(true);
}

bool TQXXenoCodeOptions::LoadLocation(IQXOptionsReader& Reader, std::string& Location, std::string_view Tool,
                                      TRegistryRoot Root, std::string_view Key)
{
    Location = Reader.ReadString(FindMember(&Location)->StoredUnder(), "");
    if (!Location.empty())
        return true;
    Location = FindAssemblyPath(Tool, Root, Key);
    SetModified(true);
    return false;
}
