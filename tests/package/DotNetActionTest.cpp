#include "tests/DataFile.h"
#include "tests/package/PackageTest.h"

#include "host/QXServices.h"
#include "package/plugin/QXDotNetAction.h"
#include "package/plugin/QXDotNetOptionsImpl.h"

#include <map>

namespace
{
class TToolAction final : public TQXDotNetAction
{
public:
    explicit TToolAction(TQXDotNetToolType ToolType) : FToolType(ToolType) {}
    TQXDotNetToolType GetDotNetToolType() const override { return FToolType; }
    std::string GetDotNetTool() const override { return "Tool.exe"; }
    bool GetCommandLine(ICommandLineBuilder&) override { return true; }

private:
    TQXDotNetToolType FToolType;
};
} // namespace

TEST(DotNetAction, ComparesVersionsAsNumbers)
{
    TToolAction Action(ttSDK);
    CheckTable(
        "versions", "SDK version",
        [&](const TColumns& Row) {
            Action.MinimumSDKVersion = Row[0];
            return TColumns{YesOrNo(Action.IsValidSDKVersion(Row[1]))};
        },
        2);
}

TEST(DotNetAction, FollowsTheGlobalDefaultUntilItOverridesIt)
{
    TPackageHost Host;
    Host.SetDotNetVersions({{"v1.1", "/f1", "/s1"}, {"v2.0", "/f2", ""}});
    TToolAction Action(ttFramework);

    EXPECT_EQ(Action.GetDefaultSDKVersion(), "v2.0");
    Action.SetDefaultSDKVersion("v1.1");
    EXPECT_EQ(Action.GetDefaultSDKVersion(), "v2.0") << "without an override the text is dropped";
    DotNetOptions().SetDefaultSDKVersion("v1.1");
    EXPECT_EQ(Action.GetFrameWorkPath(), "/f1");
    Action.OverrideSDKDefault = true;
    EXPECT_EQ(Action.GetDefaultSDKVersion(), "v2.0") << "what was the default when the text was dropped";
    Action.SetDefaultSDKVersion("v9.9");
    EXPECT_EQ(Action.GetDefaultSDKVersion(), "v9.9");
    EXPECT_EQ(Action.GetSDKPath(), "");

    TStringList Hidden;
    Action.GetHiddenProperties(Hidden);
    EXPECT_EQ(Hidden, (TStringList{"MinimumSDKVersion", "DotNetToolType", "SDKVersion"}));
}

TEST(DotNetAction, TellsBeforeTheRunWhatIsMissing)
{
    const std::map<std::string, TQXDotNetToolType> Types = {
        {"framework", ttFramework}, {"SDK", ttSDK}, {"none", ttNone}};
    CheckTable(
        "versions", "missing tool",
        [&](const TColumns& Row) {
            TPackageHost Host;
            Host.SetDotNetVersions({{"v2.0", "/framework", ""}});
            TToolAction Action(Types.at(Row[0]));
            Action.OverrideSDKDefault = true;
            Action.MinimumSDKVersion = Row[1];
            Action.SetDefaultSDKVersion(Row[2]);
            const auto Connection = Host.Connect(Action);
            const bool IsReady = Action.BeforeGetCommandLine();
            EXPECT_EQ(IsReady, Host.Log.Messages.empty());
            return Host.Log.Messages;
        },
        3);
}

TEST(DotNetAction, FindsItsToolInTheSpellingOnDisk)
{
    TPackageHost Host;
    Host.Folder.Write("sdk/tool.EXE");
    Host.SetDotNetVersions({{"v2.0", "/framework/", Host.Folder.Path() + "/SDK"}});
    TToolAction Sdk(ttSDK);
    TToolAction Framework(ttFramework);
    for (TToolAction* Action : {&Sdk, &Framework})
    {
        Action->OverrideSDKDefault = true;
        Action->SetDefaultSDKVersion("v2.0");
    }
    EXPECT_EQ(Sdk.GetExecutable(), Host.Folder.Path() + "/sdk/tool.EXE");
    EXPECT_EQ(Framework.GetExecutable(), "/framework/Tool.exe");
    EXPECT_EQ(Framework.GetStartingDir("/framework/Tool.exe"), "/framework/");
    EXPECT_EQ(TToolAction(ttNone).GetExecutable(), "Tool.exe");
}

TEST(DotNetOptions, DefaultToTheNewestVersionUntilOneIsStored)
{
    struct TRow
    {
        const char* Options;
        std::vector<TFakeDotNetVersion> Versions;
        const char* Expected;
    };
    const TRow Rows[] = {
        {"", {{"v1.1", "", ""}, {"v4.5", "", ""}}, "v4.5"},
        {"", {}, ""},
        {"[\"Microsoft.NET\"]\nDefaultSDKVersion = \"v1.1\"\n", {{"v4.5", "", ""}}, "v1.1"},
        {"[\"Microsoft.NET\"]\nDefaultSDKVersion = \"\"\n", {{"v4.5", "", ""}}, ""},
    };
    for (const TRow& Row : Rows)
    {
        TPackageHost Host;
        Host.SetOptions(Row.Options);
        Host.SetDotNetVersions(Row.Versions);
        EXPECT_EQ(DotNetOptions().GetDefaultSDKVersion(), Row.Expected) << Row.Options;
        EXPECT_FALSE(DotNetOptions().GetImplementation().IsModified());
    }
}

TEST(DotNetOptions, AreModifiedByAChangeOnlyAndStored)
{
    TPackageHost Host;
    DotNetOptions().SetDefaultSDKVersion("v2.0");
    EXPECT_FALSE(DotNetOptions().GetImplementation().IsModified());
    DotNetOptions().SetDefaultSDKVersion("v1.1");
    EXPECT_TRUE(DotNetOptions().GetImplementation().IsModified());

    Host.Runtime.StoreOptions(Host.Runtime.OptionsServices().Options().front());
    EXPECT_EQ(Host.Runtime.Options().ReadString("Microsoft.NET", "DefaultSDKVersion"), "v1.1");
}
