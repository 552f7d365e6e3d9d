#pragma once

#include "apps/designer/Icons.h"
#include "apps/designer/MainMenu.h"
#include "apps/designer/MessageBar.h"
#include "apps/designer/actions/ActionList.h"
#include "apps/designer/actions/ActionPalette.h"
#include "apps/designer/dialogs/QtDesignServices.h"
#include "apps/designer/document/FileCommands.h"
#include "apps/designer/document/ProjectDocument.h"
#include "apps/designer/editors/ActionPane.h"
#include "apps/designer/editors/ProjectPane.h"
#include "apps/designer/help/HelpDock.h"
#include "apps/designer/run/ProblemList.h"
#include "apps/designer/run/RunController.h"
#include "apps/designer/run/RunPanel.h"
#include "apps/shared/HostSetup.h"

#include <QDockWidget>
#include <QLabel>
#include <QMainWindow>
#include <QStackedWidget>

/// The window of the designer: palette, actions, pages, log and problems, and what goes on between them.
class TMainWindow final : public QMainWindow
{
    Q_OBJECT

public:
    /// The runtime has its packages registered with their pages.
    TMainWindow(TQXRuntime& Runtime, const THostFiles& Files);
    ~TMainWindow() override;

    [[nodiscard]] TProjectDocument& Document() { return FDocument; }
    [[nodiscard]] TFileCommands& FileCommands() { return *FFiles; }
    [[nodiscard]] TActionPalette& Palette() { return *FPalette; }
    [[nodiscard]] TActionList& List() { return *FList; }
    [[nodiscard]] TActionPane& ActionPane() { return *FActionPane; }
    [[nodiscard]] TProjectPane& ProjectPane() { return *FProjectPane; }
    [[nodiscard]] TRunController& Runs() { return *FRuns; }
    [[nodiscard]] TRunPanel& RunPanel() { return *FRunPanel; }
    [[nodiscard]] TProblemList& Problems() { return *FProblems; }
    [[nodiscard]] THelpDock& Help() { return *FHelp; }
    [[nodiscard]] TMessageBar& Bar() { return *FBar; }

    void Run(TRunController::TKind Kind, TRunController::TScope Scope);
    void Validate();
    void ShowOptions();
    void ShowHelp();

protected:
    void closeEvent(QCloseEvent* Event) override;
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    QDockWidget* AddDock(const QString& Name, const QString& Title, QWidget* Content, Qt::DockWidgetArea Area);
    void ArrangeDocks();
    void MakeMenus();
    void MakeFileMenu(TMenuBuilder& Builder);
    void MakeEditMenu(TMenuBuilder& Builder);
    void MakeActionMenu(TMenuBuilder& Builder);
    void MakeRunMenu(TMenuBuilder& Builder);
    void MakeViewMenu(TMenuBuilder& Builder);
    void MakeHelpMenu(TMenuBuilder& Builder);
    void ConnectParts();

    /// Takes over what is being typed.
    void CommitEdits();
    void ShowAction(int Place);
    void GoTo(const TProblem& Problem);
    void GoToAction(int Number);
    void UpdateTitle();
    void UpdateCommands();
    void UpdateCounts();
    void ShowPane(QDockWidget* Dock, QWidget* Focus);
    [[nodiscard]] std::string ClassAtHand() const;

    TQXRuntime& FRuntime;
    TProjectDocument FDocument;
    TQtDesignServices FServices;
    TMessageBar* FBar;
    TActionPalette* FPalette;
    TActionList* FList;
    TActionPane* FActionPane;
    TProjectPane* FProjectPane;
    QStackedWidget* FPanes;
    TRunPanel* FRunPanel;
    TProblemList* FProblems;
    THelpDock* FHelp;
    TFileCommands* FFiles;
    TRunController* FRuns;
    QDockWidget* FPaletteDock = nullptr;
    QDockWidget* FListDock = nullptr;
    QDockWidget* FLogDock = nullptr;
    QDockWidget* FProblemsDock = nullptr;
    QAction* FUndo = nullptr;
    QAction* FRedo = nullptr;
    QAction* FStop = nullptr;
    QList<QAction*> FStarts;      ///< while nothing runs
    QList<QAction*> FOfSelection; ///< while an action is selected
    QLabel* FCounts;
    QString FPointed; ///< the class in the palette
};
