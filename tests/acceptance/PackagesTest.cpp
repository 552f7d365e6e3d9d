// Packages in the folder where the program looks for them.
#include "tests/acceptance/ProgramTest.h"

#include "gmock/gmock.h"

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{
class TPackagesTest : public TProgramTest
{
protected:
    /// An installed program of the test's own.
    TPackagesTest()
    {
        Shell("mkdir -p host/bin host/lib && cp '" QUEXLEY_BINARY_DIR "/bin/quexley' host/bin &&"
              " cp -Rs '" QUEXLEY_BINARY_DIR "'/lib/* host/lib");
    }
};
} // namespace

TEST_F(TPackagesTest, ABrokenOneIsNamedAndHidesNoOther)
{
    WriteFile("host/lib/quexley/Broken.so", "no library");
    WriteFile("host/lib/quexley/README", "no package");
    Shell("ln -s ../libQX40CoreAPI.so host/lib/quexley/Core.so && ln -s QX40Basics.so host/lib/quexley/Twice.so");
    const std::string Warnings = Shell("host/bin/quexley list 2>&1 >list");
    EXPECT_THAT(Warnings, StartsWith("quexley: warning: " + Path("host/lib/quexley/Broken.so: cannot be loaded: ")));
    EXPECT_THAT(Warnings, HasSubstr("/Core.so: exports no QXRegister; this package is left out\n"));
    EXPECT_THAT(Warnings, HasSubstr("/Twice.so: QX40Basics: The action class TQXRunProgramAction is registered twice; "
                                    "this package is left out\n"));
    EXPECT_EQ(Shell("grep -cE 'TGACInstallAction|TQXRunProgramAction' list"), "2\n");

    WriteFile("quexley.toml", "[[action]]\ntype = 'TQXRunProgramAction'\nProgram = 'true'\n");
    EXPECT_THAT(Shell("host/bin/quexley run --format json 2>/dev/null"),
                HasSubstr(R"({"event":"host-warning","message":")" + Path("host/lib/quexley/Broken.so: ")));
    Shell("rm host/lib/quexley/QX40*");
    const std::string Without = Shell("host/bin/quexley run 2>&1 || true");
    EXPECT_THAT(Without, StartsWith("quexley: warning: "));
    EXPECT_THAT(Without, EndsWith("quexley.toml:2:8: there is no action type \"TQXRunProgramAction\"\n"));
}
