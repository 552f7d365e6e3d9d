#include "apps/designer/MainWindow.h"

#include "apps/designer/QtText.h"
#include "apps/designer/document/DesignTime.h"
#include "apps/designer/options/OptionsDialog.h"
#include "apps/designer/run/Validation.h"
#include "platform/Paths.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMessageBox>
#include <QPointer>
#include <QSettings>
#include <QStatusBar>
#include <QVBoxLayout>

#include <algorithm>

namespace
{
const QString GeometryKey = QStringLiteral("geometry");
const QString StateKey = QStringLiteral("state");
} // namespace

TMainWindow::TMainWindow(TQXRuntime& Runtime, const THostFiles& Files)
    : FRuntime(Runtime),
      FServices([this](std::string_view Text) { return ExpandAtDesignTime(FDocument.Project(), Text); }),
      FBar(new TMessageBar), FPalette(new TActionPalette), FList(new TActionList(FDocument)),
      FActionPane(new TActionPane(FDocument, FServices)), FProjectPane(new TProjectPane(FDocument)),
      FPanes(new QStackedWidget), FRunPanel(new TRunPanel), FProblems(new TProblemList), FHelp(new THelpDock(this)),
      FFiles(new TFileCommands(*this, FDocument, *FBar)),
      FRuns(new TRunController(FDocument, *FList, *FRunPanel, *FProblems, Files)), FCounts(new QLabel)
{
    FFiles->setParent(this);
    FRuns->setParent(this);
    Runtime.SetDesignServices(&FServices);
    FPalette->Fill();
    FPalette->Search().setObjectName(QStringLiteral("search"));
    FPalette->Tree().setObjectName(QStringLiteral("palette"));
    FList->setObjectName(QStringLiteral("list"));
    FProblems->setObjectName(QStringLiteral("problems"));
    FRunPanel->Log().setObjectName(QStringLiteral("log"));
    FPanes->addWidget(FProjectPane);
    FPanes->addWidget(FActionPane);
    auto* Middle = new QWidget;
    auto* Layout = new QVBoxLayout(Middle);
    Layout->addWidget(FBar);
    Layout->addWidget(FPanes, 1);
    setCentralWidget(Middle);
    ArrangeDocks();
    MakeMenus();
    statusBar()->addPermanentWidget(FCounts);
    ConnectParts();
    qApp->installEventFilter(this);
    UpdateTitle();
    UpdateCommands();
    UpdateCounts();
    const QSettings Settings;
    restoreGeometry(Settings.value(GeometryKey).toByteArray());
    restoreState(Settings.value(StateKey).toByteArray());
    FProblems->SetStanding(FindHostProblems(Runtime));
    if (!FProblems->Problems().empty())
        FProblemsDock->raise();
}

TMainWindow::~TMainWindow()
{
    FDocument.disconnect(this);
    FDocument.Steps().disconnect(this);
    FRuntime.SetDesignServices(nullptr);
    // Everything that looks at the project goes before it, and what widgets tell on their way is not asked for.
    qApp->removeEventFilter(this);
    hide();
    delete FRuns;
    delete FFiles;
    delete takeCentralWidget();
    qDeleteAll(findChildren<QDockWidget*>(QString(), Qt::FindDirectChildrenOnly));
}

QDockWidget* TMainWindow::AddDock(const QString& Name, const QString& Title, QWidget* Content, Qt::DockWidgetArea Area)
{
    auto* Dock = new QDockWidget(Title, this);
    Dock->setObjectName(Name);
    Dock->setWidget(Content);
    addDockWidget(Area, Dock);
    return Dock;
}

void TMainWindow::ArrangeDocks()
{
    setCorner(Qt::BottomLeftCorner, Qt::BottomDockWidgetArea);
    setCorner(Qt::BottomRightCorner, Qt::BottomDockWidgetArea);
    FPaletteDock = AddDock(QStringLiteral("Palette"), tr("Palette"), FPalette, Qt::LeftDockWidgetArea);
    FListDock = AddDock(QStringLiteral("Actions"), tr("Actions"), FList, Qt::LeftDockWidgetArea);
    splitDockWidget(FPaletteDock, FListDock, Qt::Horizontal);
    FLogDock = AddDock(QStringLiteral("Log"), tr("Log"), FRunPanel, Qt::BottomDockWidgetArea);
    FProblemsDock = AddDock(QStringLiteral("Problems"), tr("Problems"), FProblems, Qt::BottomDockWidgetArea);
    tabifyDockWidget(FLogDock, FProblemsDock);
    FLogDock->raise();
    addDockWidget(Qt::RightDockWidgetArea, FHelp);
    FHelp->hide();
    constexpr QSize Size(1340, 820);
    constexpr int PaletteWidth = 275;
    constexpr int ListWidth = 300;
    constexpr int LogHeight = 210;
    resize(Size);
    resizeDocks({FPaletteDock, FListDock}, {PaletteWidth, ListWidth}, Qt::Horizontal);
    resizeDocks({FLogDock}, {LogHeight}, Qt::Vertical);
}

void TMainWindow::ConnectParts()
{
    const auto Tell = [this](const QString& Text) { statusBar()->showMessage(Text, 5000); };
    const auto Refuse = [this](const QString& Reason) { FBar->Show(Reason); };
    connect(FPalette, &TActionPalette::Chosen, FList, &TActionList::Add);
    connect(FPalette, &TActionPalette::Pointed, this, [this](const QString& ClassName) {
        FPointed = ClassName;
        if (FHelp->isVisible() && FPalette->isAncestorOf(QApplication::focusWidget()))
            FHelp->Show(ClassAtHand());
    });
    connect(FList, &TActionList::CurrentChanged, this, &TMainWindow::ShowAction);
    connect(FList, &TActionList::Refused, this, Refuse);
    connect(FActionPane, &TActionPane::Refused, this, Refuse);
    connect(FProjectPane, &TProjectPane::Refused, this, Refuse);
    connect(FList->selectionModel(), &QItemSelectionModel::selectionChanged, this, &TMainWindow::UpdateCommands);
    connect(&FDocument, &TProjectDocument::StateChanged, this, [this] {
        UpdateTitle();
        UpdateCommands();
    });
    connect(&FDocument, &TProjectDocument::Replaced, this, [this] {
        ShowAction(FList->Current());
        UpdateTitle();
        UpdateCommands();
        UpdateCounts();
    });
    connect(&FDocument, &TProjectDocument::Failed, this, Refuse);
    connect(&FDocument.Steps(), &QUndoStack::indexChanged, this, &TMainWindow::UpdateCommands);
    connect(FFiles, &TFileCommands::Told, this, Tell);
    connect(FFiles, &TFileCommands::Opened, this, [this] {
        FList->Model().ClearStates();
        FProblems->Clear();
        FList->Select({});
    });
    connect(FFiles, &TFileCommands::Leaving, this, &TMainWindow::CommitEdits);
    connect(FFiles, &TFileCommands::Noted, this, [this](const QStringList& Notes) {
        for (const QString& Note : Notes)
            FProblems->Add({{false, 0, {}, {}, Note}});
        if (!Notes.isEmpty())
            FProblemsDock->raise();
    });
    connect(FProblems, &TProblemList::Chosen, this, &TMainWindow::GoTo);
    connect(&FRunPanel->Log(), &TLogView::Chosen, this, &TMainWindow::GoToAction);
    connect(FRuns, &TRunController::StateChanged, this, &TMainWindow::UpdateCommands);
    connect(FProblems, &TProblemList::Changed, this, [this] {
        const std::size_t Count = FProblems->Problems().size();
        FProblemsDock->setWindowTitle(Count == 0 ? tr("Problems") : tr("Problems (%1)").arg(Count));
    });
}

/// Without moving on: what is typed counts as soon as its field loses the keyboard.
void TMainWindow::CommitEdits()
{
    const QPointer<QWidget> Focus = QApplication::focusWidget();
    if (!Focus || Focus->window() != this)
        return;
    Focus->clearFocus();
    if (Focus)
        Focus->setFocus();
    FDocument.Flush();
}

void TMainWindow::ShowAction(int Place)
{
    FActionPane->CheckPage();
    FDocument.Flush();
    if (Place >= 0 && Place < FDocument.Count())
        FActionPane->Show(Place);
    else
        FActionPane->Forget();
    FPanes->setCurrentIndex(Place < 0 ? 0 : 1);
    if (FHelp->isVisible())
        FHelp->Show(ClassAtHand());
}

void TMainWindow::GoToAction(int Number)
{
    if (Number < 1 || Number > FDocument.Count())
        return;
    FList->Select({Number - 1});
    FList->scrollTo(FList->currentIndex());
}

void TMainWindow::GoTo(const TProblem& Problem)
{
    if (Problem.Action < 1)
        return FList->Select({});
    GoToAction(Problem.Action);
    FActionPane->Find(Problem.Label);
}

void TMainWindow::Run(TRunController::TKind Kind, TRunController::TScope Scope)
{
    CommitEdits();
    const bool WasModified = FDocument.IsModified() || !FDocument.HasFile();
    if (FRuns->IsRunning() || (WasModified && !FFiles->Save()))
        return;
    if (WasModified)
        statusBar()->showMessage(tr("Saved before the run"), 5000);
    FLogDock->show();
    FLogDock->raise();
    FRuns->Start(Kind, Scope);
}

void TMainWindow::Validate()
{
    CommitEdits();
    const int Count = FRuns->Validate();
    for (const QString& Reason : FActionPane->Reasons())
        FProblems->Add({{true, FList->Current() + 1, {}, {}, Reason}});
    statusBar()->showMessage(Count == 0 ? tr("The project is valid.") : tr("Problems: %1").arg(Count), 5000);
    if (Count > 0)
        ShowPane(FProblemsDock, FProblems);
}

void TMainWindow::ShowOptions()
try
{
    CommitEdits();
    TOptionsDialog(this, FRuntime).exec();
    ShowAction(FList->Current()); // pages show what options say
}
catch (const EHostFileError& Error) // an options file that cannot be read cannot be changed, either
{
    FBar->Show(ToQt(Error.what()));
}

std::string TMainWindow::ClassAtHand() const
{
    if (FPalette->isAncestorOf(QApplication::focusWidget()) && !FPointed.isEmpty())
        return FromQt(FPointed);
    const int Place = FList->Current();
    return Place < 0 || Place >= FDocument.Count() ? FromQt(FPointed)
                                                   : FDocument.Project().Actions[static_cast<std::size_t>(Place)].Type;
}

void TMainWindow::ShowHelp()
{
    FHelp->Show(ClassAtHand());
    FHelp->show();
    FHelp->raise();
}

void TMainWindow::ShowPane(QDockWidget* Dock, QWidget* Focus)
{
    Dock->show();
    Dock->raise();
    Focus->setFocus(Qt::ShortcutFocusReason);
}

void TMainWindow::UpdateTitle()
{
    const QString File = FDocument.HasFile() ? ToQt(Paths::FileName(FDocument.File())) : tr("untitled");
    setWindowTitle(QStringLiteral("%1 (%2)[*] - %3")
                       .arg(ToQt(FDocument.Project().Name), File, QApplication::applicationDisplayName()));
    setWindowModified(FDocument.IsModified());
    setWindowFilePath(ToQt(FDocument.File()));
}

void TMainWindow::UpdateCounts()
{
    const TProject& Project = FDocument.Project();
    const auto Enabled = std::count_if(Project.Actions.begin(), Project.Actions.end(),
                                       [](const TProjectAction& Action) { return Action.Enabled; });
    const auto Count = [](std::size_t Number, const QString& One, const QString& Many) {
        return Number == 1 ? One : Many.arg(Number);
    };
    FCounts->setText(tr("%1, %2 enabled, %3")
                         .arg(Count(Project.Actions.size(), tr("1 action"), tr("%1 actions")))
                         .arg(Enabled)
                         .arg(Count(Project.AllVariables().size(), tr("1 variable"), tr("%1 variables"))));
}

void TMainWindow::UpdateCommands()
{
    const QUndoStack& Steps = FDocument.Steps();
    FUndo->setEnabled(Steps.canUndo() || FDocument.IsTouched());
    FUndo->setText(Steps.canUndo() ? tr("&Undo %1").arg(Steps.undoText()) : tr("&Undo"));
    FRedo->setEnabled(Steps.canRedo());
    FRedo->setText(Steps.canRedo() ? tr("&Redo %1").arg(Steps.redoText()) : tr("&Redo"));
    const bool IsRunning = FRuns->IsRunning();
    for (QAction* Start : FStarts)
        Start->setEnabled(!IsRunning);
    FStop->setEnabled(IsRunning);
    for (QAction* Command : FOfSelection)
        Command->setEnabled(!FList->Selected().empty());
}

void TMainWindow::closeEvent(QCloseEvent* Event)
{
    CommitEdits();
    const bool MayEnd =
        !FRuns->IsRunning() || QMessageBox::question(this, QApplication::applicationDisplayName(),
                                                     tr("A run is going on. End it?")) == QMessageBox::Yes;
    if (!MayEnd || !FFiles->MayLeave())
        return Event->ignore();
    QSettings Settings;
    Settings.setValue(GeometryKey, saveGeometry());
    Settings.setValue(StateKey, saveState());
    Event->accept();
}

/// Undo and Redo are those of the project, wherever the keyboard is.
bool TMainWindow::eventFilter(QObject* Watched, QEvent* Event)
{
    if (Event->type() == QEvent::ShortcutOverride)
    {
        const auto& Key = static_cast<QKeyEvent&>(*Event);
        const auto* Widget = qobject_cast<QWidget*>(Watched);
        if (Widget && Widget->window() == this && (Key.matches(QKeySequence::Undo) || Key.matches(QKeySequence::Redo)))
        {
            Event->ignore();
            return true;
        }
    }
    return QMainWindow::eventFilter(Watched, Event);
}
