#include "apps/designer/dialogs/FormDialog.h"
#include "apps/designer/pages/PageTabs.h"
#include "tests/designer/SamplePage.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

namespace
{
class Renderer : public testing::Test
{
protected:
    Renderer()
    {
        Action.Lines = {"a", "b"};
        Action.List = "x,y";
        Action.Pairs = {"n=1"};
        Pages = std::make_unique<TPageTabs>(
            Tabs, Action, Classes, [](const std::string& Path) { return "short" + Path; }, false);
        QObject::connect(Pages.get(), &TPageTabs::Changed, [this] { ++Changes; });
        Tabs.resize(600, 900);
        Tabs.show();
        QApplication::setActiveWindow(&Tabs);
        Pages->Activate(0);
    }
    template <typename T> T& Widget(const char* Name)
    {
        T* Found = nullptr;
        for (QWidget* Each : Tabs.findChildren<QWidget*>(Name))
        {
            Found = qobject_cast<T*>(Each);
            Found = Found ? Found : qobject_cast<T*>(Each->focusProxy());
        }
        if (!Found)
            throw std::logic_error(Name);
        return *Found;
    }
    TSamplePage& Page() { return static_cast<TSamplePage&>(Pages->Set().Page(0)); }

    static constexpr TQXPageClass Classes[] = {QXPageClass<TSamplePage>("TSamplePage")};
    TSamplePageAction Action;
    QTabWidget Tabs;
    std::unique_ptr<TPageTabs> Pages;
    int Changes = 0;
};
} // namespace

TEST_F(Renderer, ShowsWhatTheObjectHolds)
{
    EXPECT_EQ(Tabs.tabText(0), "Sample && more");
    EXPECT_FALSE(Widget<QLineEdit>("txtText").isEnabled());
    EXPECT_EQ(Widget<QLineEdit>("txtSecret").echoMode(), QLineEdit::Password);
    EXPECT_EQ(Widget<QPlainTextEdit>("memLines").toPlainText(), "a\nb");
    EXPECT_EQ(Widget<QTreeWidget>("lstList").topLevelItemCount(), 2);
    EXPECT_EQ(Widget<QTableWidget>("grdPairs").item(0, 1)->text(), "1");
    EXPECT_EQ(Changes, 0) << "showing is no change";
    Action.Flag = true;
    Action.Kinds.Include(skTwo);
    Action.Lines.Clear();
    Pages->Read();
    EXPECT_TRUE(Widget<QLineEdit>("txtText").isEnabled());
    EXPECT_EQ(Widget<QTreeWidget>("chlKinds").topLevelItem(1)->checkState(0), Qt::Checked);
    EXPECT_EQ(Widget<QPlainTextEdit>("memLines").toPlainText(), "");
    EXPECT_EQ(Changes, 0);
}

TEST_F(Renderer, TakesWhatIsTypedPickedAndClicked)
{
    QTest::mouseClick(&Widget<QCheckBox>("chkFlag"), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_TRUE(Action.Flag);
    QTest::keyClicks(&Widget<QLineEdit>("txtText"), "ab");
    EXPECT_EQ(Action.Text, "ab");
    QTest::keyClick(&Widget<QLineEdit>("txtText"), Qt::Key_Left);
    QTest::keyClicks(&Widget<QLineEdit>("txtText"), "X");
    EXPECT_EQ(Action.Text, "aXb") << "the cursor stays where it is";
    QTest::keyClick(&Widget<QComboBox>("cbKind"), Qt::Key_Down);
    EXPECT_EQ(Action.Kind, skTwo);
    QTest::keyClicks(&Widget<QPlainTextEdit>("memLines"), "c");
    QTest::keyClick(&Widget<QPlainTextEdit>("memLines"), Qt::Key_Return);
    EXPECT_EQ(Action.Lines, (TStringList{"c", "a", "b"}));
    QTest::keyClick(&Widget<QRadioButton>("rbSecond"), Qt::Key_Space);
    EXPECT_TRUE(Page().rbSecond.IsChecked());
    EXPECT_TRUE(Widget<QRadioButton>("rbSecond").isChecked());
    EXPECT_FALSE(Widget<QRadioButton>("rbFirst").isChecked());
    Widget<QTreeWidget>("chlKinds").topLevelItem(0)->setCheckState(0, Qt::Checked);
    EXPECT_TRUE(Action.Kinds.Contains(skOne));
    QTest::keyClick(&Widget<QTreeWidget>("lstList"), Qt::Key_Delete);
    EXPECT_EQ(Action.List, "");
    QTest::mouseClick(&Widget<QPushButton>("btnHide"), Qt::LeftButton);
    EXPECT_FALSE(Widget<QRadioButton>("rbFirst").isVisible());
}

TEST_F(Renderer, ButtonsOfAFieldBrowseAndAccept)
{
    Action.Flag = true;
    Pages->Read();
    Widget<QLineEdit>("txtText").setFocus();
    QTest::keySequence(&Widget<QLineEdit>("txtText"), QKeySequence("Ctrl+Return"));
    EXPECT_EQ(Action.Text, "short/browsed") << "paths are written as the project knows them";
    QTest::keySequence(&Widget<QLineEdit>("txtText"), QKeySequence("Return"));
    EXPECT_EQ(Action.List, "x,y,short/browsed");
}

TEST_F(Renderer, RowsOfAGridComeAndGoByKeys)
{
    QTableWidget& Grid = Widget<QTableWidget>("grdPairs");
    Grid.setFocus();
    Grid.setCurrentCell(0, 1);
    QTest::keySequence(&Grid, QKeySequence("Ctrl+Return"));
    EXPECT_EQ(Action.Pairs, TStringList{"n=1!"});
    QTest::keyClick(&Grid, Qt::Key_Insert);
    ASSERT_EQ(Grid.rowCount(), 2);
    Grid.item(1, 0)->setText("m");
    EXPECT_EQ(Action.Pairs, (TStringList{"n=1!", "m="}));
    Grid.setCurrentCell(0, 0);
    QTest::keyClick(&Grid, Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(Action.Pairs, TStringList{"m="});
}

TEST_F(Renderer, EveryFieldHasALabelAndANameAndIsReachedByTab)
{
    for (const char* Name : {"txtText", "txtSecret", "memLines", "grdPairs", "lstList"})
        EXPECT_FALSE(Widget<QWidget>(Name).accessibleName().isEmpty() &&
                     Widget<QWidget>(Name).focusProxy()->accessibleName().isEmpty())
            << Name;
    EXPECT_EQ(Widget<QLineEdit>("txtText").accessibleName(), "A text") << "what it fills in";
    EXPECT_EQ(Widget<QLineEdit>("txtSecond").accessibleName(), "Second") << "what it belongs to";
    bool HasBuddy = false;
    for (const QLabel* Label : Tabs.findChildren<QLabel*>())
        HasBuddy |= Label->buddy() == &Widget<QLineEdit>("txtSecret") && Label->text() == "Secret";
    EXPECT_TRUE(HasBuddy);
    Widget<QCheckBox>("chkFlag").setFocus();
    QStringList Order;
    for (int Step = 0; Step < 40; ++Step)
    {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        if (const QString Control = Pages->FocusedControl(); !Control.isEmpty() && !Order.contains(Control))
            Order.append(Control);
    }
    EXPECT_EQ(Order.join(QLatin1Char(32)).toStdString(),
              "txtSecret cbKind memLines lstList chlKinds grdPairs lsvAll rbFirst rbSecond txtSecond btnHide "
              "btnOther chkFlag");
}

TEST_F(Renderer, FieldsAreFoundByWhatUsersCallThem)
{
    for (const auto& [Label, Control] :
         {std::pair("Text", "txtText"), {"secret", "txtSecret"}, {"Pairs", "grdPairs"}, {"KINDS", "chlKinds"}})
    {
        Action.Flag = true;
        Pages->Read();
        EXPECT_TRUE(Pages->Find(Label)) << Label;
        EXPECT_EQ(Pages->FocusedControl(), Control);
    }
    EXPECT_FALSE(Pages->Find("Nothing"));
}

namespace
{
class TSampleForm final : public TForm
{
public:
    TSampleForm()
    {
        Title = "Sample";
        CloseBy(btnOk, btnCancel, [this] { return !txtName.Text.empty(); });
    }
    [[nodiscard]] std::string_view ClassName() const override { return "TSampleForm"; }
    TEdit txtName{*this, "txtName", "Name"};
    TButton btnOk{*this, "btnOk", "OK"};
    TButton btnCancel{*this, "btnCancel", "Cancel"};
};

/// Shows a form, types Text, and presses the button of this name, or Escape for none.
bool UseForm(const char* Text, const char* Button)
{
    TSampleForm Form;
    TFormDialog Dialog(nullptr, Form);
    QTimer::singleShot(0, &Dialog, [&] {
        QTest::keyClicks(Dialog.findChild<QWidget*>("txtName")->focusProxy(), Text);
        if (Button)
            QTest::mouseClick(Dialog.findChild<QPushButton*>(Button), Qt::LeftButton);
        if (Dialog.isVisible())
            QTest::keyClick(&Dialog, Qt::Key_Escape);
    });
    Dialog.exec();
    EXPECT_TRUE(Form.IsClosed());
    return Form.IsAccepted();
}
} // namespace

TEST(FormDialog, EndsByItsButtonsAndEscape)
{
    EXPECT_TRUE(UseForm("x", "btnOk"));
    EXPECT_FALSE(UseForm("", "btnOk")) << "it stays, and Escape cancels";
    EXPECT_FALSE(UseForm("x", "btnCancel"));
    EXPECT_FALSE(UseForm("x", nullptr));
}
