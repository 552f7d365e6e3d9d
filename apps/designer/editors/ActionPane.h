#pragma once

#include "apps/designer/dialogs/QtDesignServices.h"
#include "apps/designer/document/ProjectDocument.h"
#include "apps/designer/editors/PropertyGrid.h"
#include "apps/designer/editors/RunPage.h"
#include "apps/designer/pages/PageTabs.h"
#include "apps/designer/scripts/ScriptPane.h"

#include <QTabWidget>

#include <memory>

/// One action: its pages, when it runs, its scripts, and all of its properties.
class TActionPane final : public QTabWidget
{
    Q_OBJECT

public:
    TActionPane(TProjectDocument& Document, TQtDesignServices& Services);
    ~TActionPane() override;

    /// Shows an action of the document, on the tab and the control that were current if it is of the same class.
    void Show(int Place);
    /// What is shown is no more.
    void Forget();
    /// Says what the current page has against what was changed on it.
    void CheckPage();
    /// What the pages have against their content.
    [[nodiscard]] QStringList Reasons();
    /// Goes to the field that users know by this name.
    void Find(const QString& Label);
    [[nodiscard]] TPropertyGrid& Grid() { return *FGrid; }
    [[nodiscard]] TPageTabs& Pages() { return *FPages; }
    [[nodiscard]] TScriptPane& ActionScripts() { return *FScripts; }
    [[nodiscard]] TRunPage& RunPage() { return *FRunPage; }

signals:
    void Refused(const QString& Reason);

private:
    [[nodiscard]] std::string Located(const std::string& Text) const;
    [[nodiscard]] std::string Shortened(const std::string& Path) const;
    void ShowTab(const QString& Name);
    void ShowGrid(const TProjectAction& Action, bool IsReadOnly);
    void TakeGrid(const QString& Property);
    void TakePages(const QString& Control);
    void TakeScript(const QString& Name, const QString& Text);
    void LeaveFor(int Tab);
    [[nodiscard]] QStringList ReasonsOf(int Page);
    bool FindInTabs(const QString& Label);

    TProjectDocument& FDocument;
    TQtDesignServices& FServices;
    int FPlace = -1;
    int FPage = -1; ///< the tab in front
    bool FIsShowing = false;
    bool FIsChanged = false; ///< the page in front, since it came there
    std::string FType;
    std::unique_ptr<TPageTabs> FPages;
    TRunPage* FRunPage;
    TScriptPane* FScripts;
    TPropertyGrid* FGrid;
};
