#include "host/QXUtilities.h"
#include "platform/Files.h"
#include "runtime/HostErrors.h"
#include "tests/TempFolder.h"
#include "tests/runtime/SampleActions.h"
#include "tests/runtime/TestHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace
{
class TSampleOptions final : public TQXOptionsObject
{
public:
    static std::string GetName() { return "Sample"; }
    static std::string GetCategory() { return "Tools"; }
    static std::string GetOptionKey() { return "Sample Tool"; }
    TSampleOptions()
    {
        Publish("Location", Location, "Where it lies").StoredAs("SampleLocation");
        Publish("Count", Count, "How often");
        Publish("Flag", Flag, "Whether it waves");
        Publish("Colour", Colour, "The colour").StoredAsOrdinal("ColourNumber");
        Publish("Colours", Colours, "More colours");
        Publish("Lines", Lines, "Any lines");
    }
    std::string Location = "default";
    int Count = 3;
    bool Flag = false;
    TSampleColour Colour = TSampleColour::Green;
    TQXSet<TSampleColour> Colours;
    TStringList Lines;
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
    EXPECT_EQ(Found->ActionClass.HelpTopicID, 1);
    EXPECT_TRUE(Found->ActionClass.Create()->Execute());
    EXPECT_EQ(Loads, 1);
    EXPECT_THROW(QXActionServices().RegisterAction("Other", "Tools", Found->ActionClass, ""), std::logic_error);
    EXPECT_THROW(QXOptionsServices().RegisterOptions(QXOptionsServices().Options()[0].OptionsClass, ""),
                 std::logic_error);
}

TSampleOptions& LoadSampleOptions(TTestHost& Host, const std::string& Text)
{
    Host.SetOptions("[\"Sample Tool\"]\n" + Text);
    QXOptionsServices().RegisterOptions(QXOptionsClass<TSampleOptions>("TSampleOptions"), "SAMPLE");
    return dynamic_cast<TSampleOptions&>(*QXOptionsServices().GetOptions("Tools", "Sample"));
}

TEST(OptionsObject, LoadsAndStoresItsTable)
{
    const std::array<std::string, 2> Cases[] = {
        {"", "SampleLocation = \"default\"\nCount = 3\nFlag = false\nColourNumber = 1\nColours = []\nLines = []\n"},
        {"SampleLocation = 4\nCount = '5'\nFlag = true\nColourNumber = 2\nColours = ['Blue', 'Red']\nLines = ['a']\n",
         "SampleLocation = 4\nCount = '5'\nFlag = true\nColourNumber = 2\nColours = [\"Red\", \"Blue\"]\nLines = "
         "['a']\n"},
    };
    for (const auto& [Text, Stored] : Cases)
    {
        TTestHost Host;
        const TSampleOptions& Options = LoadSampleOptions(Host, Text);
        EXPECT_FALSE(Options.IsModified());
        EXPECT_EQ(QXOptionsServices().GetOptions("Tools", "Sample"), &Options);
        EXPECT_EQ(QXOptionsServices().GetOptions("Tools", "Other"), nullptr);
        Host.Runtime.StoreOptions(QXOptionsServices().Options()[0]);
        EXPECT_EQ(Host.Runtime.Options().Text(), "[\"Sample Tool\"]\n" + Stored);
    }
}

TEST(OptionsObject, RefusesWhatAPropertyCannotHold)
{
    const std::array<const char*, 2> Cases[] = {
        {"Count = 'many'", "expects an integer, not \"many\""},
        {"Flag = 'true'", "\"Flag\" expects a Boolean, not \"true\""},
        {"ColourNumber = 3", "\"ColourNumber\" has no value \"3\"; its values are \"Red\", \"Green\", \"Blue\""},
        {"Colours = 'Red'", "\"Colours\" expects an array of names, not \"Red\""},
    };
    for (const auto& [Text, Expected] : Cases)
    {
        TTestHost Host;
        try
        {
            static_cast<void>(LoadSampleOptions(Host, Text));
            ADD_FAILURE() << Text;
        }
        catch (const EHostFileError& Error)
        {
            EXPECT_THAT(Error.what(), testing::HasSubstr(std::string(":2:")));
            EXPECT_THAT(Error.what(), testing::HasSubstr(Expected));
        }
    }
}

TEST(OptionsObject, IsModifiedByAChangeOnly)
{
    TSampleOptions Options;
    const TQXProperty& Location = *Options.FindMember(&Options.Location);
    Location.Write("default");
    EXPECT_FALSE(Options.IsModified());
    Location.Write("/opt");
    EXPECT_TRUE(Options.IsModified());
    EXPECT_EQ(Options.Location, "/opt");
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
