// Writes pictures of the designer into a folder: the main window, every page of every action, the options. scripts/
// screenshots calls it for each theme and scale.
#include "apps/designer/MainWindow.h"
#include "apps/designer/QtText.h"
#include "apps/designer/Theme.h"
#include "apps/designer/document/ActionEdits.h"
#include "apps/designer/options/OptionsDialog.h"
#include "host/QXServices.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QPushButton>
#include <QSettings>
#include <QTimer>
#include <QToolButton>

#include <algorithm>
#include <cstdio>

namespace
{
class TCamera
{
public:
    TCamera(const QString& Folder, const QString& Variant) : FFolder(Folder), FVariant(Variant) {}

    void Take(QWidget& Widget, const QString& Name) const
    {
        QApplication::processEvents();
        const QString File = QStringLiteral("%1/%2-%3.png").arg(FFolder, Name, FVariant);
        // As small as may be: some of them are kept. Nobody sees the lowest bit.
        QImage Picture = Widget.grab().toImage().convertToFormat(QImage::Format_RGB888);
        std::for_each_n(Picture.bits(), Picture.sizeInBytes(), [](uchar& Byte) { Byte &= 0xFE; });
        if (!Picture.save(File, nullptr, 0))
            std::fprintf(stderr, "%s cannot be written\n", qPrintable(File));
    }

private:
    QString FFolder;
    QString FVariant;
};

/// What each button of a page shows: those that ask for files are the system's own.
void TakeDialogs(const QWidget& Page, const QString& Name, const TCamera& Camera)
{
    int Number = 0;
    for (QAbstractButton* Button : Page.findChildren<QAbstractButton*>())
    {
        const bool Opens = qobject_cast<QPushButton*>(Button) || qobject_cast<QToolButton*>(Button);
        if (!Opens || !Button->isVisible() || !Button->isEnabled())
            continue;
        QTimer::singleShot(20, Button, [&] {
            QWidget* Window = QApplication::activePopupWidget();
            Window = Window ? Window : QApplication::activeModalWidget();
            if (!Window)
                return;
            if (!qobject_cast<QFileDialog*>(Window))
                Camera.Take(*Window, QStringLiteral("dialog-%1-%2").arg(Name).arg(++Number));
            Window->close();
        });
        Button->click();
        for (int Turn = 0; Turn < 5; ++Turn)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
    }
}

void TakeAction(TMainWindow& Window, const std::string& Class, const TCamera& Camera)
{
    TActionPane& Pane = Window.ActionPane();
    for (int Tab = 0; Tab < Pane.count(); ++Tab)
    {
        const bool IsPage = Tab < Pane.Pages().Count();
        if (!Pane.isTabVisible(Tab) || (!IsPage && Class != "TQXCSProjCompilerAction"))
            continue;
        Pane.setCurrentIndex(Tab);
        const QString Name = QStringLiteral("%1-%2").arg(ToQt(Class)).arg(Tab);
        Camera.Take(Pane, QStringLiteral("page-%1").arg(Name));
        if (IsPage)
            TakeDialogs(*Pane.currentWidget(), Name, Camera);
    }
}

void TakePages(TMainWindow& Window, const TCamera& Camera)
{
    for (const TQXActionRegistration& Registration : QXActionServices().Actions())
    {
        const std::string& Class = Registration.ActionClass.ClassName;
        const QString Reason = Window.Document().Change(
            QString(), [&](TProject& Project) { return ActionEdits::Add(Project, Class, 1000); });
        if (Reason.isEmpty())
            TakeAction(Window, Class, Camera);
        else
            std::fprintf(stderr, "%s: %s\n", Class.c_str(), qPrintable(Reason));
    }
}

void TakeOptions(TMainWindow& Window, TQXRuntime& Runtime, const TCamera& Camera)
{
    TOptionsDialog Dialog(&Window, Runtime);
    Dialog.show();
    for (int Row = 0; Row < Dialog.Names().count(); ++Row)
    {
        Dialog.Names().setCurrentRow(Row);
        Camera.Take(Dialog, QStringLiteral("options-%1").arg(Row));
    }
}
void Run(TMainWindow& Window, TRunController::TKind Kind)
{
    Window.Run(Kind, TRunController::TScope::All);
    while (Window.Runs().IsRunning())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void SetProjectFile(TMainWindow& Window, const std::string& File)
{
    static_cast<void>(Window.Document().Change(QString(), [&](TProject& Project) {
        Project.Actions.at(2).Object->FindProperty("ProjectFile")->Write(File);
        return TPlaces{2};
    }));
}

void TakeProject(TMainWindow& Window, const QString& File, const TCamera& Camera)
{
    Window.FileCommands().Open(File);
    Camera.Take(Window, QStringLiteral("project"));
    Window.List().Select({std::min(2, Window.Document().Count() - 1)});
    Run(Window, TRunController::TKind::Run);
    Camera.Take(Window, QStringLiteral("run"));
    Window.ShowHelp();
    Run(Window, TRunController::TKind::DryRun);
    Camera.Take(Window, QStringLiteral("dry-run"));
    Window.Help().hide();
    SetProjectFile(Window, {});
    Window.Validate();
    Window.Bar().Ask(QStringLiteral("Another program has changed \"quexley.toml\"."), QStringLiteral("&Reload"),
                     nullptr, QStringLiteral("&Keep Mine"), nullptr);
    Camera.Take(Window, QStringLiteral("findings"));
    SetProjectFile(Window, "src/Lost.csproj");
    Run(Window, TRunController::TKind::Run);
    Camera.Take(Window, QStringLiteral("failed"));
}

} // namespace

int main(int Count, char** Words)
{
    QApplication Application(Count, Words);
    if (Count != 5)
    {
        std::fprintf(stderr, "designer_screenshots FOLDER THEME VARIANT PROJECT\n");
        return 2;
    }
    QApplication::setOrganizationName(QStringLiteral("quexley"));
    QApplication::setApplicationName(QStringLiteral("designer-screenshots"));
    QApplication::setApplicationDisplayName(QStringLiteral("Quexley Designer"));
    QSettings().clear();
    Themes::Apply(Themes::FromName(QString::fromLocal8Bit(Words[2])));
    const QString Folder = QString::fromLocal8Bit(Words[1]);
    QDir().mkpath(Folder);
    const TCamera Camera(Folder, QString::fromLocal8Bit(Words[3]));
    THostSetup Host({}, TNamedOptions::MayBeMissing, TPages::Registered);
    TMainWindow Window(Host.Runtime(), {});
    Window.show();
    Camera.Take(Window, QStringLiteral("empty"));
    const QSize Size = Window.size();
    Window.resize(1200, 740); // small enough for a document
    TakeProject(Window, QString::fromLocal8Bit(Words[4]), Camera);
    Window.resize(Size);
    TakePages(Window, Camera);
    TakeOptions(Window, Host.Runtime(), Camera);
    return 0;
}
