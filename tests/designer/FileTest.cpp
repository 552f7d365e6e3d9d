#include "apps/designer/QtText.h"
#include "tests/designer/DesignerTest.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QElapsedTimer>
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
    Folder().Write("common.toml", "[variables]\nB = '2'\nC = '3'\n");
    EXPECT_TRUE(WaitUntil([&] { return Document().Count() == 1; })) << "its changes are noticed";
    EXPECT_EQ(Window().ProjectPane().Variables().rowCount({}), 2);
}

TEST_F(DesignerFiles, WhatIsBeingTypedIsNotLost)
{
    Open(Text);
    Window().List().Select({0});
    Window().ActionPane().setCurrentWidget(&Window().ActionPane().RunPage());
    Type("group", "compile");
    AnswerNext("Save");
    Window().FileCommands().StartNew();
    EXPECT_EQ(Folder().Read("quexley.toml"), Text + "group = \"compile\"\n");
    EXPECT_EQ(Document().Count(), 0);
}

TEST_F(DesignerFiles, AnImportIsAProjectThatIsNotYetSaved)
{
    Folder().Write("app/app.csproj",
                   "<VisualStudioProject><CSHARP><Build><Settings AssemblyName=\"app\" OutputType=\"Exe\">"
                   "<Config Name=\"Debug\" OutputPath=\"bin\"/></Settings><References/></Build>"
                   "<Files><Include><File RelPath=\"a.cs\" BuildAction=\"Compile\"/></Include></Files>"
                   "</CSHARP></VisualStudioProject>");
    Folder().Write("app/a.cs", "class A { static void Main() {} }");
    Window().FileCommands().Import(Folder().Path());
    EXPECT_THAT(Document().Text(), testing::HasSubstr("type = \"TQXCSProjCompilerAction\""));
    EXPECT_TRUE(Window().isWindowModified());
    EXPECT_FALSE(Folder().Exists("quexley.toml"));
    EXPECT_TRUE(Window().FileCommands().Save());
    EXPECT_EQ(Folder().Read("quexley.toml"), Document().Text());
    EXPECT_TRUE(Document().Project().FollowsIDE);
}

TEST_F(DesignerFiles, AWindowIsUpWithinHalfASecond)
{
    Open(Text);
    QElapsedTimer Clock;
    Clock.start();
    TMainWindow Another(TQXRuntime::Current(), {});
    Another.show();
    EXPECT_TRUE(Another.FileCommands().Open(ToQt(Folder() / "quexley.toml")));
    EXPECT_FALSE(Another.grab().isNull());
    EXPECT_LT(Clock.elapsed(), 500);
}

/// Each step with what is painted after it. The limits leave room for a build without optimisation.
TEST_F(DesignerFiles, AProjectOfTwoThousandActionsIsAtHand)
{
    std::string Long = "# Build\n";
    for (int Number = 1; Number <= 2000; ++Number)
        Long += "\n[[action]] # " + std::to_string(Number) + "\ntype = 'TGACInstallAction'\nAssemblyPath = 'a.dll'\n";
    const auto Expect = [&](const char* Name, int Limit, const std::function<void()>& Do) {
        QElapsedTimer Clock;
        Clock.start();
        Do();
        QApplication::processEvents();
        RecordProperty(Name, static_cast<int>(Clock.elapsed()));
        EXPECT_LT(Clock.elapsed(), Limit) << Name;
    };
    Expect("open", 3000, [&] { Open(Long); });
    Expect("select", 500, [&] { Window().List().Select({1500}); });
    Expect("scroll", 500, [&] { Press("list", "End"); });
    Expect("search", 500, [&] { Type("search", "gac"); });
    Expect("type", 500, [&] { Type("txtAssemblyPath", "b"); });
    Expect("step", 1000, [&] { Document().Flush(); });
    Expect("enable", 2000, [&] { Press("list", "Ctrl+E"); });
    Expect("move", 2000, [&] { Press("list", "Alt+Up"); });
    Expect("undo", 2000, [&] { Document().Undo(); });
    Expect("save", 500, [&] { Command("Ctrl+S"); });
    const std::string Last = "\n[[action]] # 2000\ntype = 'TGACInstallAction'\n";
    EXPECT_TRUE(Document().Text().ends_with(Last + "enabled = false\nAssemblyPath = \"b\"\n"))
        << Document().Text().substr(Long.size() - 150);
}
