// The menus of the main window.
#include "apps/designer/MainWindow.h"

#include "apps/designer/Theme.h"

#include <QActionGroup>
#include <QApplication>
#include <QMessageBox>
#include <QSettings>

void TMainWindow::MakeMenus()
{
    TMenuBuilder Builder(*this);
    MakeFileMenu(Builder);
    MakeEditMenu(Builder);
    MakeActionMenu(Builder);
    MakeRunMenu(Builder);
    MakeViewMenu(Builder);
    MakeHelpMenu(Builder);
}

void TMainWindow::MakeFileMenu(TMenuBuilder& Builder)
{
    Builder.Menu(tr("&File"));
    Builder.Command(tr("&New"), QKeySequence::New, [this] { FFiles->StartNew(); });
    Builder.Tool(tr("&Open..."), QKeySequence::Open, CommandIcon(TCommandIcon::Open), [this] { FFiles->AskOpen(); });
    Builder.Command(tr("&Import Solution..."), {}, [this] { FFiles->ImportSolution(); });
    Builder.Command(tr("Import &Folder..."), {}, [this] { FFiles->ImportFolder(); });
    QMenu* Recent = Builder.SubMenu(tr("Open &Recent"));
    FFiles->ShowRecent(*Recent);
    Builder.Separator();
    Builder.Tool(tr("&Save"), QKeySequence::Save, CommandIcon(TCommandIcon::Save), [this] {
        CommitEdits();
        FFiles->Save();
    });
    Builder.Command(tr("Save &As..."), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), [this] {
        CommitEdits();
        FFiles->SaveAs();
    });
    Builder.Separator();
    Builder.Command(tr("O&ptions..."), QKeySequence(Qt::CTRL | Qt::Key_Comma), [this] { ShowOptions(); });
    Builder.Separator();
    Builder.Command(tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), [this] { close(); });
    Builder.ToolSeparator();
}

void TMainWindow::MakeEditMenu(TMenuBuilder& Builder)
{
    Builder.Menu(tr("&Edit"));
    FUndo = Builder.Tool(tr("&Undo"), QKeySequence::Undo, CommandIcon(TCommandIcon::Undo), [this] {
        CommitEdits();
        FDocument.Undo();
    });
    FRedo = Builder.Tool(tr("&Redo"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), CommandIcon(TCommandIcon::Redo),
                         [this] {
                             CommitEdits();
                             FDocument.Redo();
                         });
    FRedo->setShortcuts({QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
    FUndo->setIconText(tr("Undo"));
    FRedo->setIconText(tr("Redo"));
    Builder.Separator();
    Builder.Command(tr("&Find Action"), QKeySequence::Find, [this] {
        FPaletteDock->show();
        FPalette->BeginSearch();
    });
    Builder.Command(tr("Find in &Log"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F), [this] {
        ShowPane(FLogDock, FRunPanel);
        FRunPanel->BeginSearch();
    });
    Builder.ToolSeparator();
}

/// These keys count in the list alone: a text has its own use for some of them.
void TMainWindow::MakeActionMenu(TMenuBuilder& Builder)
{
    Builder.Menu(tr("&Action"));
    const auto OfList = [&](const QString& Caption, const QKeySequence& Key, std::function<void()> Do) {
        QAction* Command = Builder.Command(Caption, Key, std::move(Do));
        Command->setShortcutContext(Qt::WidgetShortcut);
        FList->addAction(Command);
        FOfSelection.append(Command);
        return Command;
    };
    OfList(tr("Move &Up"), QKeySequence(Qt::ALT | Qt::Key_Up), [this] { FList->MoveBy(-1); });
    OfList(tr("Move &Down"), QKeySequence(Qt::ALT | Qt::Key_Down), [this] { FList->MoveBy(1); });
    OfList(tr("D&uplicate"), QKeySequence(Qt::CTRL | Qt::Key_D), [this] { FList->Duplicate(); });
    OfList(tr("&Enable or Disable"), QKeySequence(Qt::CTRL | Qt::Key_E), [this] { FList->ToggleEnabled(); });
    OfList(tr("Re&name"), QKeySequence(Qt::Key_F2), [this] { FList->Rename(); });
    OfList(tr("&Group..."), QKeySequence(Qt::CTRL | Qt::Key_G), [this] { FList->AskGroup(); });
    Builder.Separator();
    OfList(tr("&Copy"), QKeySequence::Copy, [this] { FList->CopyOut(); });
    QAction* Paste = OfList(tr("&Paste"), QKeySequence::Paste, [this] { FList->Paste(); });
    FOfSelection.removeAll(Paste);
    OfList(tr("&Remove"), QKeySequence::Delete, [this] { FList->Remove(); });
    FList->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void TMainWindow::MakeRunMenu(TMenuBuilder& Builder)
{
    using TKind = TRunController::TKind;
    using TScope = TRunController::TScope;
    Builder.Menu(tr("&Run"));
    FStarts.append(Builder.Tool(tr("&Run"), QKeySequence(Qt::Key_F5), CommandIcon(TCommandIcon::Run),
                                [this] { Run(TKind::Run, TScope::All); }));
    FStarts.append(Builder.Tool(tr("&Dry Run"), QKeySequence(Qt::CTRL | Qt::Key_F5), CommandIcon(TCommandIcon::DryRun),
                                [this] { Run(TKind::DryRun, TScope::All); }));
    FStop = Builder.Tool(tr("&Stop"), QKeySequence(Qt::SHIFT | Qt::Key_F5), CommandIcon(TCommandIcon::Stop),
                         [this] { FRuns->Stop(); });
    FStop->setToolTip(tr("Asks the run to end; the second time ends it by force (Shift+F5)"));
    Builder.Tool(tr("&Validate"), QKeySequence(Qt::Key_F7), CommandIcon(TCommandIcon::Validate),
                 [this] { Validate(); });
    Builder.Separator();
    for (const auto& [Caption, Scope] : {std::pair(tr("Run &Selected Actions"), TScope::Selected),
                                         std::pair(tr("Run &From Current Action"), TScope::FromCurrent)})
    {
        QAction* Start = Builder.Command(Caption, {}, [this, Scope = Scope] { Run(TKind::Run, Scope); });
        FStarts.append(Start);
        FList->addAction(Start);
    }
    Builder.Separator();
    Builder.Command(tr("&Next Problem in Log"), QKeySequence(Qt::Key_F8), [this] { FRunPanel->Log().FindProblem(1); });
    Builder.Command(tr("&Previous Problem in Log"), QKeySequence(Qt::SHIFT | Qt::Key_F8),
                    [this] { FRunPanel->Log().FindProblem(-1); });
}

void TMainWindow::MakeViewMenu(TMenuBuilder& Builder)
{
    QMenu* Menu = Builder.Menu(tr("&View"));
    const auto Key = [](int Number) { return QKeySequence(Qt::CTRL | (Qt::Key_0 + Number)); };
    Builder.Command(tr("&Palette"), Key(1), [this] { ShowPane(FPaletteDock, &FPalette->Tree()); });
    Builder.Command(tr("&Actions"), Key(2), [this] { ShowPane(FListDock, FList); });
    Builder.Command(tr("Pa&ges"), Key(3), [this] { FPanes->currentWidget()->setFocus(Qt::ShortcutFocusReason); });
    Builder.Command(tr("&Log"), Key(4), [this] { ShowPane(FLogDock, &FRunPanel->Log()); });
    Builder.Command(tr("P&roblems"), Key(5), [this] { ShowPane(FProblemsDock, FProblems); });
    Builder.Separator();
    for (QDockWidget* Dock : {FPaletteDock, FListDock, FLogDock, FProblemsDock, static_cast<QDockWidget*>(FHelp)})
        Menu->addAction(Dock->toggleViewAction());
    Builder.Separator();
    auto* Choices = new QActionGroup(this);
    const TTheme Current = Themes::FromName(QSettings().value(QStringLiteral("theme")).toString());
    for (const auto& [Theme, Caption] : {std::pair(TTheme::System, tr("Colours of the &System")),
                                         std::pair(TTheme::Light, tr("L&ight")), std::pair(TTheme::Dark, tr("&Dark"))})
    {
        QAction* Choice = Builder.Command(Caption, {}, [Theme = Theme] {
            QSettings().setValue(QStringLiteral("theme"), Themes::Name(Theme));
            Themes::Apply(Theme);
        });
        Choice->setCheckable(true);
        Choice->setChecked(Theme == Current);
        Choices->addAction(Choice);
    }
}

void TMainWindow::MakeHelpMenu(TMenuBuilder& Builder)
{
    Builder.Menu(tr("&Help"));
    Builder.Command(tr("&Help on the Action"), QKeySequence(Qt::Key_F1), [this] { ShowHelp(); });
    Builder.Separator();
    Builder.Command(tr("&About"), {}, [this] {
        QMessageBox::about(
            this, QApplication::applicationDisplayName(),
            tr("Puts projects of Quexley together and runs them.\nVersion %1").arg(QApplication::applicationVersion()));
    });
}
