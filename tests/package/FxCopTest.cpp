// What no stand-in tool can end with, and validation without a collector.
#include "package/analysis/QXFxCopAction.h"
#include "tests/package/PackageTest.h"

TEST(FxCop, TellsHighBitsOfTheExitCodeAndNothingOfUnknownOnes)
{
    TPackageHost Host;
    TQXFxCopAction Action;
    const auto Connection = Host.Connect(Action);
    EXPECT_TRUE(Action.SendErrorMessage(0));
    EXPECT_FALSE(Action.SendErrorMessage(0x400));
    EXPECT_FALSE(Action.SendErrorMessage(0x1000300));
    Action.CaptureOutput = false;
    EXPECT_FALSE(Action.ExecuteValidate(nullptr));
    const std::vector<std::string> Expected = {
        "FXCOP ERROR(S):",
        "Initialization error",
        "Assembly reference error",
        "Unknown error",
        "FxCop not found! Please install and try again!",
        "Either OutputFilename or CaptureOutput must be set!",
        "Either ProjectFile or both Targets and Rules must be specified!",
    };
    EXPECT_EQ(Host.Log.Messages, Expected);
}
