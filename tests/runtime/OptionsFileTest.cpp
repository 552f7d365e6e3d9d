#include "runtime/OptionsFile.h"

#include "platform/Files.h"
#include "runtime/HostErrors.h"
#include "tests/TempFolder.h"

#include <gtest/gtest.h>

namespace
{
TEST(OptionsFile, GivesTheHostsSettingsAndStoredValues)
{
    const TOptionsFile Empty = TOptionsFile::Parse("/etc/q/o.toml", "");
    EXPECT_TRUE(Empty.DetectDotNet() && Empty.DotNetVersions().empty() && Empty.Host().Registry.empty());
    EXPECT_EQ(Empty.Host().ScriptTimeout, 10);
    EXPECT_FALSE(Empty.ReadString("NUnit", "NUnitLocation"));

    const TOptionsFile File = TOptionsFile::Parse("/etc/q/o.toml", R"(
[host]
registry = '..\build.reg'
windows_dir = "/home/me/win"
script_timeout = 3
[dotnet]
detect = false
["dotnet"."v1.1"]
framework = "net11"
[dotnet."v2.0"]
sdk = ""
["Microsoft.NET"]
DefaultSDKVersion = ""
[Other]
Number = 42
Digits = "-7"
)");
    EXPECT_EQ(File.Host().Registry, "/etc/build.reg");
    EXPECT_EQ(File.Host().WindowsDir, "/home/me/win");
    EXPECT_EQ(File.Host().ScriptTimeout, 3);
    EXPECT_FALSE(File.DetectDotNet());
    ASSERT_EQ(File.DotNetVersions().size(), 2U);
    EXPECT_EQ(File.DotNetVersions()[0].Name, "v1.1");
    EXPECT_EQ(File.DotNetVersions()[0].Framework, "/etc/q/net11");
    EXPECT_EQ(File.DotNetVersions()[1].Framework + File.DotNetVersions()[1].SDK, "");
    EXPECT_EQ(File.ReadString("Microsoft.NET", "DefaultSDKVersion"), "");
    EXPECT_EQ(File.ReadString("Other", "Number"), "42");
    EXPECT_EQ(File.ReadInteger("Other", "Number"), 42);
    EXPECT_EQ(File.ReadInteger("Other", "Digits"), -7);
    EXPECT_FALSE(File.ReadInteger("Microsoft.NET", "DefaultSDKVersion"));
}

TEST(OptionsFile, RefusesWhatItCouldNotReadAgain)
{
    TOptionsFile File = TOptionsFile::Parse("o.toml", "[host]\n");
    EXPECT_THROW(File.WriteInteger("host", "registry", 1), EHostFileError);
    EXPECT_EQ(File.Text(), "[host]\n");
}

TEST(OptionsFile, MayBeMissingUnlessItMustExist)
{
    const TTempFolder Folder;
    const std::string Name = Folder / "a/options.toml";
    EXPECT_THROW(static_cast<void>(TOptionsFile::Load(Name, true)), EHostFileError);

    TOptionsFile File = TOptionsFile::Load(Name, false);
    File.WriteString("NUnit", "NUnitLocation", "x");
    File.Save();
    EXPECT_EQ(Files::Read(Name), "[NUnit]\nNUnitLocation = \"x\"\n");
    EXPECT_EQ(TOptionsFile::Load(Name, true).ReadString("NUnit", "NUnitLocation"), "x");
    EXPECT_THROW(static_cast<void>(TOptionsFile::Load(Folder.Path(), true)), EHostFileError);
}
} // namespace
