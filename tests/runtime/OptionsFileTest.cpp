#include "runtime/OptionsFile.h"

#include "platform/Files.h"
#include "runtime/HostErrors.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <variant>

namespace
{
std::string ErrorOf(std::string_view Text)
{
    try
    {
        static_cast<void>(TOptionsFile::Parse("o.toml", Text));
        return "no error";
    }
    catch (const EHostFileError& Error)
    {
        return Error.what();
    }
}

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

TEST(OptionsFile, ReportsEveryMistakeAtItsPlace)
{
    const std::pair<std::string_view, std::string_view> Cases[] = {
        {"x = 1", "o.toml:1:5: \"x\" expects a table, not an integer"},
        {"[host]\nregistri = ''\nscript_timeout = 0\nwindows_dir = 1",
         "o.toml:2:1: [host] has no key \"registri\"; did you mean \"registry\"?\n"
         "o.toml:3:18: 0 is out of range for \"script_timeout\" (1 to 2147483647)\n"
         "o.toml:4:15: \"windows_dir\" expects a string, not an integer"},
        {"[dotnet]\ndetct = true\n[dotnet.v1.1]\n[dotnet.'v2.0.50727']\n[dotnet.'v1.0']\nframwork = ''",
         "o.toml:2:1: [dotnet] has no key \"detct\"; did you mean \"detect\"?\n"
         "o.toml:3:12: the name of a .NET version stands in quotes: [dotnet.\"v1.1\"]\n"
         "o.toml:4:9: \"v2.0.50727\" is not the name of a .NET version, which is \"v\" and a number with one full stop "
         "at "
         "most, as in \"v1.1\"\n"
         "o.toml:6:1: [dotnet.\"v1.0\"] has no key \"framwork\"; did you mean \"framework\"?"},
        {"[Microsoft.NET]\n[NUnit]\nA = true\nB = 3000000000\nC = []",
         "o.toml:1:12: \"NET\" is a table inside \"Microsoft\"; a name with a dot stands in quotes: "
         "[\"Microsoft.NET\"]\n"
         "o.toml:3:5: \"A\" expects a string or an integer, not a Boolean\n"
         "o.toml:4:5: 3000000000 is out of range for \"B\" (-2147483648 to 2147483647)\n"
         "o.toml:5:5: \"C\" expects a string or an integer, not an array"},
        {"[NUnit]\nA = 1\nA = 2",
         "o.toml:3:5: error while parsing key-value pair: cannot redefine existing integer 'A'"},
    };
    for (const auto& [Text, Expected] : Cases)
        EXPECT_EQ(ErrorOf(Text), Expected) << Text;
}

TEST(OptionsFile, StoresValuesAndLeavesTheRestAsItIs)
{
    struct TCase
    {
        std::string_view Before, Key, Name;
        std::variant<std::string, int> Value;
        std::string_view After;
    };
    const TCase Cases[] = {
        {"", "Microsoft.NET", "DefaultSDKVersion", "v4.5", "[\"Microsoft.NET\"]\nDefaultSDKVersion = \"v4.5\"\n"},
        {"# c\r\n[A]\r\nx = 'old' # why\r\n", "A", "x", R"(C:\n"x")", "# c\r\n[A]\r\nx = 'C:\\n\"x\"' # why\r\n"},
        {"[A]\r\nx = 1 # c\r\n# end\r\n\r\n[B]\r\n", "A", "y z", 5,
         "[A]\r\nx = 1 # c\r\n\"y z\" = 5\r\n# end\r\n\r\n[B]\r\n"},
        {"[A] # c\n[B]", "B", "x", 1, "[A] # c\n[B]\nx = 1"},
        {"[A]\n  x = ''\n\n\n", "B", "x", "\n", "[A]\n  x = ''\n\n[B]\nx = \"\\n\"\n"},
        {"A.x = 1\nB = {  x=1}\n", "A", "y", 2, "A.x = 1\nA.y = 2\nB = {  x=1}\n"},
        {"A.x = 1\nB = {  x=1}\n", "B", "y", 2, "A.x = 1\nB = { x=1, y = 2 }\n"},
        {"B = {}", "B", "y", 2, "B = { y = 2 }"},
        {"[A]\nx = '5'", "A", "x", 5, "[A]\nx = '5'"},
        {"[A]\nx = '''\na\n''' # c\ny = 1", "A", "x", -1, "[A]\nx = -1 # c\ny = 1"},
        {"[dotnet.'v1.0']\n[host]\nscript_timeout = 3 # s", "host", "script_timeout", 9,
         "[dotnet.'v1.0']\n[host]\nscript_timeout = 9 # s"},
    };
    for (const TCase& Case : Cases)
    {
        TOptionsFile File = TOptionsFile::Parse("o.toml", Case.Before);
        if (const int* Integer = std::get_if<int>(&Case.Value))
        {
            File.WriteInteger(Case.Key, Case.Name, *Integer);
            EXPECT_EQ(File.ReadInteger(Case.Key, Case.Name), *Integer);
        }
        else
        {
            File.WriteString(Case.Key, Case.Name, std::get<std::string>(Case.Value));
            EXPECT_EQ(File.ReadString(Case.Key, Case.Name), std::get<std::string>(Case.Value));
        }
        EXPECT_EQ(File.Text(), Case.After);
    }
}

TEST(OptionsFile, RefusesWhatItCouldNotReadAgain)
{
    TOptionsFile File = TOptionsFile::Parse("o.toml", "[host]\n");
    EXPECT_THROW(File.WriteInteger("host", "registry", 1), EHostFileError);
    EXPECT_EQ(File.Text(), "[host]\n");
}

TEST(OptionsFile, MayBeMissingUnlessItMustExist)
{
    const std::filesystem::path Folder = std::filesystem::path(testing::TempDir()) / "options-file-test";
    std::filesystem::remove_all(Folder);
    const std::string Name = (Folder / "a" / "options.toml").string();
    EXPECT_THROW(static_cast<void>(TOptionsFile::Load(Name, true)), EHostFileError);

    TOptionsFile File = TOptionsFile::Load(Name, false);
    File.WriteString("NUnit", "NUnitLocation", "x");
    File.Save();
    EXPECT_EQ(Files::Read(Name), "[NUnit]\nNUnitLocation = \"x\"\n");
    EXPECT_EQ(TOptionsFile::Load(Name, true).ReadString("NUnit", "NUnitLocation"), "x");
    EXPECT_THROW(static_cast<void>(TOptionsFile::Load(Folder.string(), true)), EHostFileError);
}
} // namespace
