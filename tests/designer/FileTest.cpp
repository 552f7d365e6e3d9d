#include "apps/designer/QtText.h"
#include "tests/designer/DesignerTest.h"

#include <gmock/gmock.h>

#include <QSettings>

namespace
{
class DesignerFiles : public TDesignerTest
{
};

const std::string Text = "# Build\n[[action]]\ntype = \"TGACListAction\"\n";
} // namespace

TEST_F(DesignerFiles, SavesWhatChangedAndRemembersTheProject)
{
    Open(Text);
    EXPECT_FALSE(Window().isWindowModified());
    Window().List().Select({0});
    Window().List().ToggleEnabled();
    EXPECT_TRUE(Window().isWindowModified());
    Command("Ctrl+S");
    EXPECT_FALSE(Window().isWindowModified());
    EXPECT_EQ(Folder().Read("quexley.toml"), Text + "enabled = false\n");
    Document().Undo();
    EXPECT_TRUE(Window().isWindowModified()) << "the saved state was left";
    EXPECT_EQ(TFileCommands::Recent(), QStringList{ToQt(Folder() / "quexley.toml")});
}

TEST_F(DesignerFiles, AsksBeforeChangesAreLost)
{
    Open(Text);
    Window().List().Select({0});
    Window().List().Remove();
    AnswerNext("Cancel");
    EXPECT_FALSE(Window().close());
    AnswerNext("Save");
    EXPECT_TRUE(Window().close());
    EXPECT_EQ(Folder().Read("quexley.toml").find("TGACListAction"), std::string::npos);
}

TEST_F(DesignerFiles, NoticesChangesOfOthers)
{
    Open(Text);
    const std::string Other = Text + "name = \"other\"\n";
    Folder().Write("quexley.toml", Other);
    ASSERT_TRUE(WaitUntil([&] { return Window().Bar().isVisible(); }));
    Window().Bar().Yes().click();
    EXPECT_EQ(Document().Text(), Other);
    EXPECT_FALSE(Window().isWindowModified());
    Document().Undo();
    EXPECT_EQ(Document().Text(), Text) << "what was there before can be had back";

    Folder().Write("quexley.toml", Text + "name = \"third\"\n");
    AnswerNext("No");
    EXPECT_FALSE(Window().FileCommands().Save()) << "nobody's change is written over unasked";
    EXPECT_THAT(Folder().Read("quexley.toml"), testing::HasSubstr("third"));
}

TEST_F(DesignerFiles, AnActionOfAnIncludedFileIsShownAndNotChanged)
{
    Folder().Write("common.toml", "[variables]\nB = '2'\n[[action]]\ntype = 'TGACListAction'\n");
    const std::string Main = "include = ['common.toml']\n";
    Open(Main);
    ASSERT_EQ(Document().Count(), 1);
    Window().List().Select({0});
    Window().List().ToggleEnabled();
    Window().List().Remove();
    EXPECT_EQ(Document().Text(), Main);
    EXPECT_EQ(Window().ProjectPane().Variables().rowCount({}), 1);
    Window().List().Duplicate();
    EXPECT_EQ(Document().Text(), Main + "\n[[action]]\ntype = \"TGACListAction\"\n");
}
