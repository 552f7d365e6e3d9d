#include "host/QXUtilities.h"
#include "platform/Files.h"
#include "tests/TempFolder.h"
#include "tests/runtime/TestHost.h"

#include <gtest/gtest.h>

namespace
{
class TSampleAction final : public TQXAction
{
public:
    static std::string GetActionName() { return "Sample"; }
    static int GetHelpTopicID() { return 7; }
    static std::string GetQuickHelpFilename() { return "Sample.html"; }
    bool Execute() override { return true; }
};

class TSampleOptions final : public TQXOptionsObject
{
public:
    static std::string GetName() { return "Sample"; }
    static std::string GetCategory() { return "Tools"; }
    static std::string GetOptionKey() { return "Sample Tool"; }
    void LoadOptions(IQXOptionsReader& Reader) override
    {
        Location = Reader.ReadString("Location", "default");
        Count = Reader.ReadInteger("Count", 3);
        SetModified(true);
    }
    void SaveOptions(IQXOptionsWriter& Writer) const override
    {
        Writer.WriteString("Location", Location);
        Writer.WriteInteger("Count", Count);
    }
    std::string Location;
    int Count = 0;
};

TEST(Runtime, LoadsThePackageOnceWhenSomethingIsLookedUp)
{
    TTestHost Host;
    int Loads = 0;
    Host.Runtime.SetPackageSource([&] {
        ++Loads;
        QXActionServices().RegisterAction("Sample", "Tools", QXActionClass<TSampleAction>("TSampleAction"), "SAMPLE");
        QXOptionsServices().RegisterOptions(QXOptionsClass<TSampleOptions>("TSampleOptions"), "SAMPLE");
        EXPECT_NE(QXOptionsServices().GetOptions("Tools", "Sample"), nullptr);
    });
    EXPECT_EQ(Loads, 0);
    EXPECT_EQ(QXActionServices().FindAction("Nothing"), nullptr);
    EXPECT_EQ(QXActionServices().Actions().size(), 1U);
    const TQXActionRegistration* Found = QXActionServices().FindAction("TSampleAction");
    ASSERT_NE(Found, nullptr);
    EXPECT_EQ(Found->ActionClass.HelpTopicID, 7);
    EXPECT_TRUE(Found->ActionClass.Create()->Execute());
    EXPECT_EQ(Loads, 1);
    EXPECT_THROW(QXActionServices().RegisterAction("Other", "Tools", Found->ActionClass, ""), std::logic_error);
    EXPECT_THROW(QXOptionsServices().RegisterOptions(QXOptionsServices().Options()[0].OptionsClass, ""),
                 std::logic_error);
}

TEST(Runtime, LoadsAndStoresOptionsObjects)
{
    TTestHost Host;
    Host.SetOptions("[\"Sample Tool\"]\nLocation = \"/opt/x\"\n");
    QXOptionsServices().RegisterOptions(QXOptionsClass<TSampleOptions>("TSampleOptions"), "SAMPLE");
    auto* Options = dynamic_cast<TSampleOptions*>(QXOptionsServices().GetOptions("Tools", "Sample"));
    ASSERT_NE(Options, nullptr);
    EXPECT_EQ(QXOptionsServices().GetOptions("Tools", "Other"), nullptr);
    EXPECT_EQ(QXOptionsServices().GetOptions("Tools", "Sample"), Options);
    EXPECT_EQ(Options->Location, "/opt/x");
    EXPECT_EQ(Options->Count, 3);
    EXPECT_FALSE(Options->IsModified());
    Options->Count = 4;
    Host.Runtime.StoreOptions(QXOptionsServices().Options()[0]);
    EXPECT_EQ(Host.Runtime.Options().ReadInteger("Sample Tool", "Count"), 4);
    EXPECT_EQ(Host.Runtime.Options().ReadString("Sample Tool", "Location"), "/opt/x");
}

TEST(Runtime, InnermostIsTheInstalledOne)
{
    TTestHost Outer;
    {
        const TTestHost Inner;
        EXPECT_EQ(&TQXRuntime::Current(), &Inner.Runtime);
    }
    EXPECT_EQ(&TQXRuntime::Current(), &Outer.Runtime);
    std::string File = "kept";
    EXPECT_FALSE(QXBrowseForFile(File, "All|*.*", "Title"));
    EXPECT_EQ(File, "kept");
    EXPECT_EQ(QXDesignApplicationServices().ExpandDesignTime("100%%"), "100%");
    EXPECT_THROW((void)QXDesignApplicationServices().ExpandDesignTime("%NoSuchVariableHere%"), std::runtime_error);
}

TEST(Utilities, FindsFilesAsTheyAreSpelled)
{
    const TTempFolder Folder;
    ASSERT_TRUE(Files::ForceFolders(Folder / "Win/System32"));
    Files::Write(Folder / "Win/Notes.txt", std::string_view("\xff\xfe\x61\x00\x0d\x00\x0a\x00\xe9\x00", 10));
    EXPECT_EQ(ExpandRelativePath("win\\.\\NOTES.TXT", Folder.Path()), Folder / "Win/Notes.txt");
    EXPECT_EQ(ExpandRelativePath("..\\win\\new.txt", Folder / "Win"), Folder / "Win/new.txt");
    EXPECT_EQ(ExpandRelativePath("C:\\a\\b.txt", Folder.Path()), "C:\\a\\b.txt");
    EXPECT_EQ(LoadUnicodeFile(Folder / "Win/Notes.txt").Text(), "a\r\n\xc3\xa9\r\n");
    EXPECT_THROW((void)LoadUnicodeFile(Folder / "none.txt"), std::runtime_error);

    TTestHost Host;
    EXPECT_EQ(GetWinDirectory() + GetSysDirectory(), "");
    TTestHost Other;
    Other.SetOptions("[host]\nwindows_dir = '" + (Folder / "Win") + "'\n");
    EXPECT_EQ(GetWinDirectory(), Folder / "Win");
    EXPECT_EQ(GetSysDirectory(), Folder / "Win/System32");
}
} // namespace
