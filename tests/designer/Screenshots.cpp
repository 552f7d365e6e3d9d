// Writes pictures of the designer into a folder: the main window, every page of every action, the options. scripts/
// screenshots calls it for each theme and scale.
#include "apps/designer/MainWindow.h"
#include "apps/designer/QtText.h"
#include "apps/designer/Theme.h"
#include "apps/designer/document/ActionEdits.h"
#include "apps/designer/options/OptionsDialog.h"
#include "host/QXServices.h"

#include <QApplication>
#include <QDir>
#include <QSettings>
#include <QTabBar>

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
        if (!Widget.grab().save(File))
            std::fprintf(stderr, "%s cannot be written\n", qPrintable(File));
    }

private:
    QString FFolder;
    QString FVariant;
};

void TakePages(TMainWindow& Window, const TCamera& Camera)
{
    for (const TQXActionRegistration& Registration : QXActionServices().Actions())
    {
        const std::string& Class = Registration.ActionClass.ClassName;
        const QString Reason = Window.Document().Change(
            QString(), [&](TProject& Project) { return ActionEdits::Add(Project, Class, 1000); });
        if (!Reason.isEmpty())
            std::fprintf(stderr, "%s: %s\n", Class.c_str(), qPrintable(Reason));
        TActionPane& Pane = Window.ActionPane();
        for (int Tab = 0; Tab < Pane.count(); ++Tab)
        {
            const bool IsPage = Tab < Pane.Pages().Count();
            if (!Pane.isTabVisible(Tab) || (!IsPage && Class != "TQXCSProjCompilerAction"))
                continue;
            Pane.setCurrentIndex(Tab);
            Camera.Take(Pane, QStringLiteral("page-%1-%2").arg(ToQt(Class)).arg(Tab));
        }
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
    Window.FileCommands().Open(QString::fromLocal8Bit(Words[4]));
    Camera.Take(Window, QStringLiteral("project"));
    Window.List().Select({std::min(2, Window.Document().Count() - 1)});
    Window.Validate();
    Window.Run(TRunController::TKind::DryRun, TRunController::TScope::All);
    while (Window.Runs().IsRunning())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    Window.ShowHelp();
    Camera.Take(Window, QStringLiteral("main"));
    TakePages(Window, Camera);
    TakeOptions(Window, Host.Runtime(), Camera);
    return 0;
}
