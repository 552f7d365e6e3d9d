// The example solution, compiled by the real tools where they are. Other languages and dry runs are in
// data/example.txt.
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
