#include "apps/designer/QtText.h"
#include "apps/designer/editors/PropertyGrid.h"
#include "apps/designer/options/OptionsDialog.h"
#include "host/QXServices.h"
#include "platform/Files.h"
#include "runtime/Runtime.h"
#include "tests/designer/DesignerTest.h"
#include "tests/designer/SamplePage.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

namespace
{
class PropertyGrid : public testing::Test
{
protected:
    PropertyGrid()
    {
        Grid.Show(&Action, std::make_unique<TSamplePageAction>(), "TSamplePageAction", {"Secret"}, false);
        Grid.resize(500, 500);
        Grid.show();
        QApplication::setActiveWindow(&Grid);
        QObject::connect(&Grid, &TPropertyGrid::Changed, [this](const QString& Name) { Changes.append(Name); });
    }
    /// Opens the editor of a property by the key for it.
    template <typename T> T& Edit(const char* Name)
    {
        EXPECT_TRUE(Grid.Select(Name));
        QTest::keyClick(&Grid.View(), Qt::Key_F2);
        T* Editor = Grid.View().viewport()->findChild<T*>();
        if (!Editor)
            throw std::logic_error(Name);
        return *Editor;
    }
    static void Confirm(QWidget& Editor)
    {
        QTest::keyClick(&Editor, Qt::Key_Return);
        QApplication::processEvents(); // the editor hands its value over when it has done with the key
    }
    QString Shown(const char* Name)
    {
        return Grid.Model().index(Grid.Model().RowOf(Name), TPropertyModel::ValueColumn).data().toString();
    }
    TSamplePageAction Action;
    TPropertyGrid Grid;
    QStringList Changes;
};

class DesignerPanes : public TDesignerTest
{
};
} // namespace

TEST_F(PropertyGrid, EditsEachTypeByTheKeyboard)
{
    EXPECT_FALSE(Grid.Select("Secret")) << "hidden ones have no row";
    QLineEdit& Text = Edit<QLineEdit>("Text");
    QTest::keyClicks(&Text, "abc");
    Confirm(Text);
    EXPECT_EQ(Action.Text, "abc");
    QSpinBox& Number = Edit<QSpinBox>("Number");
    QTest::keyClicks(&Number, "12");
    Confirm(Number);
    EXPECT_EQ(Action.Number, 12);
    QComboBox& Kind = Edit<QComboBox>("Kind");
    QTest::keyClick(&Kind, Qt::Key_Down);
    Confirm(Kind);
    EXPECT_EQ(Action.Kind, skTwo);
    ASSERT_TRUE(Grid.Select("Flag"));
    QTest::keyClick(&Grid.View(), Qt::Key_Space);
    EXPECT_TRUE(Action.Flag);
    EXPECT_EQ(Changes.join(' '), "Text Number Kind Flag");
    QTest::keySequence(&Grid.View(), QKeySequence("Ctrl+Backspace"));
    EXPECT_FALSE(Action.Flag) << "its default is back";
}

TEST_F(PropertyGrid, ShowsListsAndKeepsTheirLines)
{
    Action.Lines = {"a", "b"};
    Action.List = "x;y";
    Grid.Refresh();
    EXPECT_EQ(Shown("Lines"), "a; b");
    EXPECT_EQ(Shown("List"), "x;y");
    QLineEdit& Lines = Edit<QLineEdit>("Lines");
    EXPECT_TRUE(Lines.isReadOnly()) << "several lines are edited in a dialog";
    Confirm(Lines);
    EXPECT_EQ(Action.Lines, (TStringList{"a", "b"}));
    EXPECT_TRUE(Changes.isEmpty());
    EXPECT_FALSE(Grid.Model().IsDefault(Grid.Model().RowOf("Lines")));
}

TEST_F(DesignerPanes, VariablesAreAddedRenamedAndRefused)
{
    Open("[project]\nsecrets = ['Password']\n[variables]\nPassword = 'x'\n");
    TVariablesModel& Variables = Window().ProjectPane().Variables();
    EXPECT_EQ(Variables.index(0, TVariablesModel::ValueColumn).data().toString(), "***");
    const int Row = Variables.Add();
    EXPECT_TRUE(Variables.setData(Variables.index(Row, 0), "Config", Qt::EditRole));
    EXPECT_TRUE(Variables.setData(Variables.index(Row, 1), "Release", Qt::EditRole));
    EXPECT_FALSE(Variables.setData(Variables.index(Row, 0), "a b", Qt::EditRole));
    EXPECT_TRUE(Window().Bar().isVisible()) << "no file could hold that name";
    EXPECT_FALSE(Variables.setData(Variables.index(Row, 0), "PASSWORD", Qt::EditRole));
    EXPECT_TRUE(Variables.setData(Variables.index(0, 0), "Secret", Qt::EditRole));
    EXPECT_EQ(Document().Text(),
              "[project]\nsecrets = [\"Secret\"]\n[variables]\nSecret = \"x\"\nConfig = \"Release\"\n");
    Variables.Remove(0);
    Document().Undo();
    Document().Undo();
    EXPECT_THAT(Document().Text(), testing::HasSubstr("Password = 'x'"));
}

TEST_F(DesignerPanes, ScriptsAreEditedCheckedAndUndone)
{
    const std::string Text =
        "[[action]]\ntype = \"TQXCSProjCompilerAction\"\nProjectFile = \"a.csproj\"\nConfigName = \"Debug\"\n";
    Open(Text);
    Window().List().Select({0});
    TScriptPane& Scripts = Window().ActionPane().ActionScripts();
    Window().ActionPane().setCurrentWidget(&Scripts);
    QTest::keyClicks(&Scripts.Editor(), "var a = 1;");
    QTest::keyClick(&Scripts.Editor(), Qt::Key_Return);
    QTest::keyClicks(&Scripts.Editor(), "var = 2;");
    ASSERT_TRUE(WaitUntil([&] { return !Scripts.Editor().extraSelections().isEmpty(); })) << "the wrong line is marked";
    EXPECT_EQ(Scripts.Editor().extraSelections()[0].cursor.blockNumber(), 1);
    EXPECT_THAT(Document().Text(), testing::HasSubstr("var a = 1;\nvar = 2;"));
    Window().Validate();
    ASSERT_EQ(Window().Problems().Problems().size(), 1U) << FromQt(Window().Problems().Problems()[0].Text);
    QTest::keyClick(&Window().Problems(), Qt::Key_Return);
    EXPECT_TRUE(Scripts.isVisible());
    while (Document().Steps().canUndo())
        Document().Undo();
    EXPECT_EQ(Document().Text(), Text);
    EXPECT_EQ(Scripts.Editor().toPlainText(), "");
}

TEST_F(DesignerPanes, OptionsAreStoredOrPutBack)
{
    TQXRuntime& Runtime = TQXRuntime::Current();
    const std::string File = Folder() / "options.toml";
    const auto Change = [&](const char* Value, bool Accept) {
        TOptionsDialog Dialog(&Window(), Runtime);
        TQXOptionsObject* Object = Runtime.OptionsServices().GetOptions("Other", "NUnit");
        ASSERT_NE(Object, nullptr);
        Object->FindProperty("NUnitLocation")->Write(std::string(Value));
        Accept ? Dialog.accept() : Dialog.reject();
    };
    Change("/never", false);
    EXPECT_FALSE(Files::FileExists(File)) << "nothing changed";
    Folder().Write("options.toml", "# mine\n[Other]\na = 1\n");
    Change("/bin/nunit", true);
    EXPECT_THAT(Folder().Read("options.toml"), testing::HasSubstr("# mine\n[Other]\na = 1\n"));
    EXPECT_THAT(Folder().Read("options.toml"), testing::HasSubstr("/bin/nunit"));
}

TEST_F(DesignerPanes, TheHostsOwnOptionsAreStoredBesideTheOthers)
{
    TQXRuntime& Runtime = TQXRuntime::Current();
    const auto Edit = [&](const char* Field, const char* Text) {
        TOptionsDialog Dialog(&Window(), Runtime);
        auto* Widget = Dialog.findChild<QWidget*>(Field);
        ASSERT_NE(Widget, nullptr) << Field;
        if (auto* Box = qobject_cast<QCheckBox*>(Widget))
            return Box->click(), Dialog.accept();
        QLineEdit* Line = Widget->findChild<QLineEdit*>();
        Line->selectAll();
        QTest::keyClicks(Line, Text);
        Dialog.accept();
    };
    Folder().Write("options.toml", "[host] # mine\nscript_timeout = 3\n");
    Edit("script_timeout", "5");
    Edit("registry", "build.reg");
    Edit("windows_dir", "/win");
    Edit("detect", "");
    EXPECT_EQ(Folder().Read("options.toml"), "[host] # mine\nscript_timeout = 5\nregistry = \"build.reg\"\n"
                                             "windows_dir = \"/win\"\n\n[dotnet]\ndetect = false\n");
    EXPECT_EQ(Runtime.Options().Host().ScriptTimeout, 5);
}

TEST_F(DesignerPanes, WhatIsWrongWithTheHostStandsUnderProblems)
{
    TQXRuntime& Runtime = TQXRuntime::Current();
    Runtime.AddWarning({.Message = "broken.so: no such symbol; this package is left out"});
    Runtime.Options() = TOptionsFile::Load(Folder().Write("options.toml", "[NUnitt]\na = 1\n"), true);
    TMainWindow Another(Runtime, {});
    const auto Texts = [&] {
        QStringList Result;
        for (const TProblem& Problem : Another.Problems().Problems())
            Result.append(Problem.Text.section("/", -1));
        return FromQt(Result.join('|'));
    };
    const std::string Both = "options.toml:1:2: no options are called \"NUnitt\"; did you mean \"NUnit\"?|"
                             "broken.so: no such symbol; this package is left out";
    EXPECT_EQ(Texts(), Both);
    Another.Validate();
    EXPECT_EQ(Texts(), Both) << "it stays";
    Another.Problems().Add({{false, 0, {}, {}, "broken.so: no such symbol; this package is left out"}});
    EXPECT_EQ(Texts(), Both) << "once";
}

namespace
{
/// The letters that do something with Alt, in a window and on what it shows.
QString Mnemonics(QMainWindow& Window)
{
    QString Letters;
    const auto Add = [&](const QString& Text) {
        if (const QKeySequence Key = QKeySequence::mnemonic(Text); !Key.isEmpty())
            Letters += Key.toString().right(1);
    };
    for (const QAction* Menu : Window.menuBar()->actions())
        Add(Menu->text());
    for (const QLabel* Label : Window.findChildren<QLabel*>())
        if (Label->isVisible() && Label->buddy())
            Add(Label->text());
    for (const QAbstractButton* Button : Window.findChildren<QAbstractButton*>())
        if (Button->isVisible())
            Add(Button->text());
    return Letters;
}

void ExpectUnlike(const QString& Letters)
{
    EXPECT_EQ(QSet<QChar>(Letters.begin(), Letters.end()).size(), Letters.size()) << FromQt(Letters);
}
} // namespace

TEST_F(DesignerPanes, AGridBrowsesWhereARunWouldLook)
{
    std::filesystem::create_directory(Folder() / "sub");
    Open("[variables]\nSub = 'sub'\n[[action]]\ntype = \"TGACInstallAction\"\nAssemblyPath = '%Sub%\\A.dll'\n");
    Window().List().Select({0});
    TPropertyGrid& Grid = Window().ActionPane().Grid();
    Window().ActionPane().setCurrentWidget(&Grid);
    ASSERT_TRUE(Grid.Select("AssemblyPath"));
    QTest::keyClick(&Grid.View(), Qt::Key_F2);
    QString Began;
    QTimer::singleShot(50, qApp, [&Began] {
        auto* Dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(Dialog, nullptr);
        Began = Dialog->directory().path();
        Dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QStringLiteral("B.dll"));
        QMetaObject::invokeMethod(Dialog, "accept");
    });
    QTest::keySequence(Grid.View().findChild<QLineEdit*>(), QKeySequence("Ctrl+Return"));
    EXPECT_EQ(FromQt(Began), Folder() / "sub");
    EXPECT_THAT(Document().Text(), testing::HasSubstr("\"%ProjectDir%/sub/B.dll\""));
}

/// A window of less than usual size, every page of every action.
TEST_F(DesignerPanes, PagesNeedNoMoreThanANarrowWindow)
{
    TActionPane& Pane = Window().ActionPane();
    for (int Tab = 0; Tab < Window().ProjectPane().count(); ++Tab)
    {
        Window().ProjectPane().setCurrentIndex(Tab);
        ExpectUnlike(Mnemonics(Window()));
    }
    Window().resize(1000, 800);
    for (const TQXActionRegistration& Registration : QXActionServices().Actions())
    {
        Window().Palette().Chosen(ToQt(Registration.ActionClass.ClassName));
        Pane.setCurrentWidget(&Pane.RunPage());
        ExpectUnlike(Mnemonics(Window()));
        for (int Page = 0; Page < Pane.Pages().Count(); ++Page)
        {
            Pane.setCurrentIndex(Page);
            QApplication::processEvents();
            ExpectUnlike(Mnemonics(Window()));
            auto* Area = qobject_cast<QScrollArea*>(Pane.currentWidget());
            EXPECT_EQ(Area->horizontalScrollBar()->maximum(), 0) << Registration.DisplayName << ' ' << Page;
            for (const QLabel* Label : Area->findChildren<QLabel*>())
                EXPECT_TRUE(!Label->isVisible() || Label->height() >= Label->heightForWidth(Label->width()))
                    << FromQt(Label->text());
        }
    }
}

TEST_F(DesignerPanes, ThePaletteIsNarrowedByWords)
{
    TPaletteTree& Tree = Window().Palette().Tree();
    const auto Shown = [&] {
        int Count = 0;
        for (QTreeWidgetItemIterator Item(&Tree, QTreeWidgetItemIterator::NotHidden); *Item; ++Item)
            Count += (*Item)->childCount() == 0 ? 1 : 0;
        return Count;
    };
    const int All = Shown();
    EXPECT_GE(All, 36);
    Type("search", "gac in");
    EXPECT_LT(Shown(), All);
    EXPECT_GT(Shown(), 0);
    Press("search", "Down");
    EXPECT_TRUE(Tree.hasFocus());
    Press("palette", "Return");
    EXPECT_EQ(Document().Count(), 1);
    Type("search", "no such action");
    EXPECT_EQ(Shown(), 0);
    Press("search", "Return");
    EXPECT_EQ(Document().Count(), 1);
    Press("search", "Escape");
    EXPECT_EQ(Shown(), All);
}

TEST_F(DesignerPanes, ActionsGoThroughTheClipboardAndBetweenPlaces)
{
    Open("[[action]]\ntype = 'TGACListAction'\nname = 'a'\n\n[[action]]\ntype = 'TGACListAction'\nname = 'b'\n");
    Window().List().Select({0});
    Press("list", "Ctrl+C");
    Window().List().Select({1});
    Press("list", "Ctrl+V");
    ASSERT_EQ(Document().Count(), 3);
    EXPECT_EQ(Document().Project().Actions[2].Name, "a");
    TActionListModel& Model = Window().List().Model();
    const std::unique_ptr<QMimeData> Dragged(Model.mimeData({Model.index(3, 0)}));
    EXPECT_TRUE(Model.dropMimeData(Dragged.get(), Qt::MoveAction, 1, 0, {}));
    EXPECT_EQ(Document().Project().Actions[0].Name, "a");
    EXPECT_EQ(Window().List().Selected(), TPlaces{0});
    Document().Undo();
    Document().Undo();
    EXPECT_EQ(Document().Count(), 2);
}
