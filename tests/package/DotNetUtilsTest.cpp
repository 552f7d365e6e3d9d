#include "tests/package/PackageTest.h"

#include "package/compiler/QXDotNetUtils.h"
#include "package/compiler/QXWrapperGenerator.h"

TEST(DotNetUtils, FindsTypeLibrariesByBothReadingsOfTheirVersion)
{
    TPackageHost Host;
    Host.SetRegistry(
        "REGEDIT4\r\n[HKEY_CLASSES_ROOT\\TypeLib\\{1}\\A.0\\0\\win32]\r\n@=\"hexadecimal\"\r\n"
        "[HKEY_CLASSES_ROOT\\TypeLib\\{1}\\10.0\\0\\win32]\r\n@=\"decimal\"\r\n"
        "[HKEY_LOCAL_MACHINE\\Software\\Classes\\TypeLib\\{1}\\12.11\\C09\\win32]\r\n@=\"decimal 12.11\"\r\n"
        "[HKEY_CLASSES_ROOT\\TypeLib\\{1}\\F.0\\0\\win32]\r\n\"other\"=\"x\"\r\n"
        "[HKEY_CLASSES_ROOT\\TypeLib\\{1}\\15.0\\0\\win32]\r\n@=\"not asked for\"\r\n");
    EXPECT_EQ(FindTypLib("{1}", 10, 0, 0), "hexadecimal");
    EXPECT_EQ(FindTypLib("{1}", 12, 11, 0xC09), "decimal 12.11");
    EXPECT_EQ(FindTypLib("{1}", 16, 0, 0), "decimal") << "10 is 16 in hexadecimal";
    EXPECT_EQ(FindTypLib("{1}", 15, 0, 0), "");
    EXPECT_EQ(FindTypLib("{2}", 10, 0, 0), "");

    TXmlDocument Document;
    ASSERT_TRUE(Document.LoadFromText("<R Guid='{1}' VersionMajor='10' VersionMinor='0' Lcid='0'/>"));
    EXPECT_EQ(TQXWrapperGenerator::GetTypeLib(Document.DocumentElement()), "hexadecimal");
}

TEST(DotNetUtils, FindsTheAssemblyCache)
{
    for (const char* Registry :
         {"", "REGEDIT4\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Fusion]\r\n\"CacheLocation\"=\"\"\r\n"})
    {
        TPackageHost Host;
        Host.SetRegistry(Registry);
        Host.SetOptions("[host]\nwindows_dir = \"" + Host.Folder.Path() + "/Windows\"\n");
        EXPECT_EQ(GetGACFolder(), "");
        Host.Folder.Write("Windows/Assembly/GAC");
        EXPECT_EQ(GetGACFolder(), "") << "a file";
        std::filesystem::remove(Host.Folder.Path() + "/Windows/Assembly/GAC");
        Host.Folder.Write("Windows/Assembly/gac/x");
        EXPECT_EQ(GetGACFolder(), Host.Folder.Path() + "/Windows/Assembly/gac/");
    }
    TPackageHost Host;
    Host.Folder.Write("assembly/GAC/x");
    EXPECT_EQ(GetGACFolder(), "") << "without a Windows folder the current one does not count";
}

TEST(DotNetUtils, TakesARegisteredAssemblyCacheAsItStands)
{
    TPackageHost Host;
    Host.SetRegistry("REGEDIT4\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Fusion]\r\n"
                     "\"CacheLocation\"=\"D:\\\\nowhere\"\r\n");
    EXPECT_EQ(GetGACFolder(), "D:\\nowhere");
}

TEST(DotNetUtils, FindsInstalledAssembliesByAPartOfTheirPath)
{
    TPackageHost Host;
    Host.SetRegistry("REGEDIT4\r\n[HKEY_CURRENT_USER\\Software\\Installer\\C:|Tools|Other.exe]\r\n"
                     "[HKEY_CURRENT_USER\\Software\\Installer\\C:|Tools|XC.EXE]\r\n"
                     "[HKEY_CURRENT_USER\\Software\\Installer\\D:|xc.exe]\r\n");
    EXPECT_EQ(FindAssemblyPath("xc.exe", TRegistryRoot::CurrentUser, "\\SOFTWARE\\Installer"), "C:\\Tools\\XC.EXE");
    EXPECT_EQ(FindAssemblyPath("missing.exe", TRegistryRoot::CurrentUser, "\\SOFTWARE\\Installer"), "");
    EXPECT_EQ(FindAssemblyPath("xc.exe", TRegistryRoot::LocalMachine, "\\SOFTWARE\\Installer"), "");
}
