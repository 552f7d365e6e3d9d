#include "apps/designer/dialogs/QtDesignServices.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>

namespace
{
class DesignDialogs : public testing::Test
{
protected:
    /// Shows a dialog and does something with its window, which ends it; Escape ends one that is still there.
    TQXAnswer Show(const TQXDialog& Dialog, std::function<void(QWidget& Window)> Use)
    {
        QTimer::singleShot(50, qApp, [Use = std::move(Use)] {
            QWidget* Window = QApplication::activePopupWidget();
            Window = Window ? Window : QApplication::activeModalWidget();
            ASSERT_NE(Window, nullptr);
            Use(*Window);
            if (Window->isVisible())
                QTest::keyClick(Window, Qt::Key_Escape);
        });
        return Services.ShowDialog(Dialog);
    }
    static void Accept(QWidget& Window)
    {
        auto* Box = Window.findChild<QDialogButtonBox*>();
        for (QAbstractButton* Button : Box->buttons())
            if (Box->buttonRole(Button) == QDialogButtonBox::AcceptRole ||
                Box->buttonRole(Button) == QDialogButtonBox::YesRole)
                return Button->click();
    }
    static void Cancel(QWidget& Window) { QTest::keyClick(&Window, Qt::Key_Escape); }

    TQtDesignServices Services{
        [](std::string_view Text) { return std::string(Text == "%ProjectDir%" ? "/usr" : Text); }};
};
} // namespace

TEST_F(DesignDialogs, GiveWhatTheirUserAnswers)
{
    using TKind = TQXDialogKind;
    const auto Typed = [](QWidget& Window) {
        QTest::keyClicks(Window.findChild<QLineEdit*>(), "new");
        Accept(Window);
    };
    const TQXAnswer Line = Show({.Kind = TKind::Input, .Title = "T", .Prompt = "P", .Text = "old"}, Typed);
    EXPECT_EQ(Line.Texts, std::vector<std::string>{"new"});
    const TQXAnswer Text = Show({.Kind = TKind::Text, .Text = "a\nb"}, [](QWidget& Window) {
        EXPECT_EQ(Window.findChild<QPlainTextEdit*>()->toPlainText(), "a\nb");
        QTest::keyClicks(Window.findChild<QPlainTextEdit*>(), "x");
        Accept(Window);
    });
    EXPECT_EQ(Text.Texts, std::vector<std::string>{"xa\nb"});
    const TQXAnswer Entry = Show({.Kind = TKind::Menu, .Entries = {"One", "-", "Two"}}, [](QWidget& Window) {
        QTest::keyClick(&Window, Qt::Key_Down);
        QTest::keyClick(&Window, Qt::Key_Down);
        QTest::keyClick(&Window, Qt::Key_Return);
    });
    EXPECT_EQ(Entry.Texts, std::vector<std::string>{"Two"});
    EXPECT_TRUE(Show({.Kind = TKind::Confirm, .Text = "Sure?"}, Accept).Accepted);
    EXPECT_FALSE(Show({.Kind = TKind::Confirm, .Text = "Sure?"}, Cancel).Accepted);
    for (const TKind Kind :
         {TKind::Input, TKind::Text, TKind::Menu, TKind::Open, TKind::Save, TKind::Folder, TKind::Paths})
        EXPECT_FALSE(Show({.Kind = Kind, .Separator = ";"}, Cancel).Accepted) << static_cast<int>(Kind);
}

TEST_F(DesignDialogs, RelativePathsAreThoseOfTheProject)
{
    const auto BeginsInShare = [](QWidget& Window) {
        EXPECT_EQ(qobject_cast<QFileDialog*>(&Window)->directory().path(), "/usr/share");
        Cancel(Window);
    };
    static_cast<void>(Show({.Kind = TQXDialogKind::Open, .File = R"(share\a.txt)"}, BeginsInShare));
    static_cast<void>(Show({.Kind = TQXDialogKind::Save, .Folder = "share"}, BeginsInShare));
    static_cast<void>(Show({.Kind = TQXDialogKind::Folder, .File = "share"}, BeginsInShare));
}

TEST_F(DesignDialogs, AListIsEditedEntryByEntry)
{
    const TQXDialog Dialog{
        .Kind = TQXDialogKind::Paths, .Title = "T", .Text = "a,b,c", .Caption = "C", .Separator = ",", .IsWords = true};
    const TQXAnswer Answer = Show(Dialog, [](QWidget& Window) {
        auto* List = Window.findChild<QListWidget*>();
        List->setCurrentRow(2);
        QTest::keySequence(List, QKeySequence("Alt+Up"));
        QTest::keySequence(List, QKeySequence("Alt+Up"));
        List->setCurrentRow(1);
        QTest::keyClick(List, Qt::Key_Delete);
        Accept(Window);
    });
    EXPECT_EQ(Answer.Texts, std::vector<std::string>{"c,b"});
}

TEST_F(DesignDialogs, ErrorsAreToldToWhoeverAsksForThem)
{
    std::string Told;
    Services.OnError = [&](const std::string& Text) { Told = Text; };
    EXPECT_TRUE(Services.ShowDialog({.Kind = TQXDialogKind::Error, .Text = "Wrong."}).Accepted);
    EXPECT_EQ(Told, "Wrong.");
}
