#include "tests/designer/DesignerTest.h"

#include "apps/designer/QtText.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDeadlineTimer>
#include <QLineEdit>
#include <QSettings>
#include <QTest>
#include <QTimer>

TDesignerTest::TDesignerTest()
{
    // What stands here is the user's; each test begins with none.
    QSettings().clear();
    const THostFiles Files{.OptionsFile = FFolder / "options.toml"};
    FHost = std::make_unique<THostSetup>(Files, TNamedOptions::MayBeMissing, TPages::Registered);
    FWindow = std::make_unique<TMainWindow>(FHost->Runtime(), Files);
    FWindow->show();
    QApplication::setActiveWindow(FWindow.get());
    QApplication::processEvents();
}

TDesignerTest::~TDesignerTest() = default;

void TDesignerTest::Open(const std::string& Text)
{
    ASSERT_TRUE(FWindow->FileCommands().Open(ToQt(FFolder.Write("quexley.toml", Text))));
}

QWidget* TDesignerTest::Find(const std::string& Name)
{
    for (QWidget* Widget : FWindow->findChildren<QWidget*>(ToQt(Name)))
        if (Widget->isVisible())
            return Widget->focusProxy() ? Widget->focusProxy() : Widget;
    ADD_FAILURE() << "there is no visible \"" << Name << '"';
    return FWindow.get();
}

void TDesignerTest::Type(const std::string& Name, const std::string& Text)
{
    QWidget* Field = Find(Name);
    Field->setFocus();
    QTest::keySequence(Field, QKeySequence::SelectAll);
    QTest::keyClicks(Field, ToQt(Text));
}

void TDesignerTest::Press(const std::string& Name, const std::string& Key)
{
    QWidget* Field = Find(Name);
    Field->setFocus();
    QTest::keySequence(Field, QKeySequence(ToQt(Key)));
}

void TDesignerTest::Command(const std::string& Key)
{
    QWidget* Focus = QApplication::focusWidget();
    QTest::keySequence(Focus ? Focus : FWindow.get(), QKeySequence(ToQt(Key)));
}

bool TDesignerTest::WaitUntil(const std::function<bool()>& Condition)
{
    const QDeadlineTimer Deadline(std::chrono::minutes(1));
    while (!Condition() && !Deadline.hasExpired())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    return Condition();
}

void TDesignerTest::AnswerNext(const std::string& Button)
{
    QTimer::singleShot(100, qApp, [Button] {
        const QWidget* Dialog = QApplication::activeModalWidget();
        ASSERT_NE(Dialog, nullptr) << "nothing is asked";
        for (QAbstractButton* Each : Dialog->findChildren<QAbstractButton*>())
            if (Each->text().remove(QLatin1Char('&')) == ToQt(Button))
                return Each->click();
        ADD_FAILURE() << "there is no button \"" << Button << '"';
    });
}
