#include "tests/package/PackageTest.h"

#include "host/QXServices.h"
#include "package/plugin/QXDotNetAction.h"
#include "package/plugin/QXDotNetOptionsImpl.h"

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
    struct TRow
    {
        const char *Minimum, *Version;
        bool Valid;
    };
    static const TRow Rows[] = {
        {"v1.0", "v1.1", true},  {"1.1", "v1.1", true},   {"V1.1", "1.1", true},    {"1.2", "v1.1", false},
        {"1.2", "v2.0", true},   {"v1.0", "", true},      {"2.0", "", false},       {"2.0", "v2.0.50727", false},
        {"1.0", "v2.0.1", true}, {"2.0", "vv2.0", false}, {"2.0", "2.v0", true},    {"v4.5", "v4.0", false},
        {"nan", "v1.0", true},   {"inf", "v1.0", true},   {"v10.0", "v9.0", false}, {"2.0", " v2.0 ", true},
    };
    TToolAction Action(ttSDK);
    for (const TRow& Row : Rows)
    {
        Action.MinimumSDKVersion = Row.Minimum;
        EXPECT_EQ(Action.IsValidSDKVersion(Row.Version), Row.Valid) << Row.Minimum << " <= " << Row.Version;
    }
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
    struct TRow
    {
        TQXDotNetToolType ToolType;
        const char *Minimum, *Version, *Message;
    };
    static const TRow Rows[] = {
        {ttFramework, "1.0", "v2.0", nullptr},
        {ttSDK, "1.0", "v2.0", "The .NET SDK version you are trying to use is not installed"},
        {ttFramework, "1.0", "v3.0", "The .NET framework version you are trying to use is not installed"},
        {ttSDK, "1.0", "", "The .NET SDK version you are trying to use is not installed"},
        {ttNone, "1.0", "v3.0", nullptr},
        {ttFramework, "v3.0", "v2.0",
         "The current SDK version (v2.0) is less than the minimum version required (v3.0)"},
        {ttNone, "1.2", "", "The current SDK version () is less than the minimum version required (1.2)"},
    };
    for (const TRow& Row : Rows)
    {
        TPackageHost Host;
        Host.SetDotNetVersions({{"v2.0", "/framework", ""}});
        TToolAction Action(Row.ToolType);
        Action.OverrideSDKDefault = true;
        Action.MinimumSDKVersion = Row.Minimum;
        Action.SetDefaultSDKVersion(Row.Version);
        const auto Connection = Host.Connect(Action);
        EXPECT_EQ(Action.BeforeGetCommandLine(), Row.Message == nullptr) << Row.Minimum << ' ' << Row.Version;
        EXPECT_EQ(Host.Log.Messages, Row.Message ? std::vector<std::string>{Row.Message} : std::vector<std::string>{});
    }
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
