// The example solution, compiled by the real tools where they are, and its other languages by stand-ins.
#include "tests/acceptance/ProgramTest.h"

#include "gmock/gmock.h"

#include <filesystem>
#include <string>

namespace fs = std::filesystem;
using testing::HasSubstr;

namespace
{
class TExampleTest : public TProgramTest
{
protected:
    TExampleTest()
    {
        fs::copy(QUEXLEY_SOURCE_DIR "/examples/acme", Folder(), fs::copy_options::recursive);
        fs::remove_all(Path("bin"));
    }

    /// The output of a command of the shell in the folder.
    std::string Shell(const std::string& Command)
    {
        const std::string Line = "cd '" + Folder() + "' && (" + Command + ") > shell-output 2>&1";
        EXPECT_EQ(std::system(Line.c_str()), 0) << ReadFile("shell-output");
        return ReadFile("shell-output");
    }
};
} // namespace

TEST_F(TExampleTest, CompilesAndRunsWithTheRealTools)
{
    if (!fs::exists("/usr/lib/mono/4.5/mcs.exe") || !fs::exists("/usr/lib/mono/4.5/lc.exe"))
        GTEST_SKIP() << "Mono's tools are not installed";
    const TProgramResult Result = Run({"run", "--set", "Version=2.7.1.8"});
    ASSERT_EQ(Result.ExitCode, 0) << Result.Out << Result.Err;
    EXPECT_THAT(Result.Out, HasSubstr("  Looking for the output of Core.dll\n"));
    EXPECT_THAT(Shell("monodis --assembly bin/Release/AcmeConsole.exe"), HasSubstr("Version:       2.7.1.8\n"));
    EXPECT_EQ(Shell("mono bin/Release/AcmeConsole.exe"), "Acme's stock today:\n   3 anvil\n  12 rocket skates\n");
    EXPECT_EQ(Shell("mono bin/Release/AcmeForms.exe /check"), "Acme.Forms....Shared.About.txt\n"
                                                              "Acme.Forms.Logo.bmp\n"
                                                              "Acme.Forms.MainForm.resources\n"
                                                              "Acme.Forms.Messages.resources\n"
                                                              "AcmeForms.exe.licenses\n"
                                                              "Acme & Sons: stock\n"
                                                              "Welcome to the stock\n"
                                                              "anvil\n");
    EXPECT_FALSE(HasFile("bin/Release/lc.exe"));
}

TEST_F(TExampleTest, ADryRunTellsTheStampAndLeavesTheSources)
{
    UseStandInTools();
    for (const char* Tool : {"csc.exe", "resgen.exe", "lc.exe"})
        WriteStandIn(Tool);
    const std::string Before = ReadFile("src/Acme.Core/AssemblyInfo.cs");
    const TProgramResult Result =
        Run({"run", "--dry-run", "--only", "Stamp the version", "--set", "Version=9.0.0.0", "--format", "json"});
    EXPECT_EQ(Result.ExitCode, 0) << Result.Out << Result.Err;
    EXPECT_THAT(Result.Out, HasSubstr("\"text\":\"Processing File : src/Acme.Core/AssemblyInfo.cs\""));
    EXPECT_THAT(Result.Out, HasSubstr(R"(Would set Attribute : AssemblyVersion Value : \"1.5.0.0\" -> \"9.0.0.0\")"));
    EXPECT_EQ(ReadFile("src/Acme.Core/AssemblyInfo.cs"), Before);
}

TEST_F(TExampleTest, OtherLanguagesGiveTheirResponseFiles)
{
    UseStandInTools();
    for (const char* Tool : {"vbc.exe", "vjc.exe", "resgen.exe"})
        WriteStandIn(Tool);
    const TProgramResult Result = Run({"run", "other-languages.toml"});
    ASSERT_EQ(Result.ExitCode, 0) << Result.Out << Result.Err;
    const std::string Root = Folder();
    EXPECT_EQ(ReadFile("src/Acme.Reports/qxresp.rsp"),
              "/imports:System,Microsoft.VisualBasic\r\n"
              "/optionexplicit\r\n"
              "/optionstrict\r\n"
              "/rootnamespace:Acme.Reports\r\n"
              "/target:library\r\n"
              "/optimize\r\n"
              "/reference:System.dll\r\n"
              "/reference:System.Data.dll\r\n"
              "/define:TRACE=True\r\n"
              "/resource:\"" +
                  Root +
                  "/src/Acme.Reports/obj/Release/Acme.Reports.Columns.resources\"\r\n"
                  "/baseaddress:285212672\r\n"
                  "/out:" +
                  Root +
                  "/bin/Release/Acme.Reports.dll\r\n"
                  "\"" +
                  Root + "/src/Acme.Reports/Report.vb\"\r\n");
    EXPECT_EQ(ReadFile("src/Acme.Legacy/qxresp.rsp"), "/securescoping\r\n"
                                                      "/warn:4\r\n"
                                                      "/target:library\r\n"
                                                      "/optimize\r\n"
                                                      "/reference:vjslib.dll\r\n"
                                                      "/reference:System.dll\r\n"
                                                      "/define:TRACE\r\n"
                                                      "/baseaddress:285212672\r\n"
                                                      "/out:" +
                                                          Root +
                                                          "/bin/Release/Acme.Legacy.dll\r\n"
                                                          "\"" +
                                                          Root + "/src/Acme.Legacy/Ledger.jsl\"\r\n");
}
