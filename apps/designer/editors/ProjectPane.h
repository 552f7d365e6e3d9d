#pragma once

#include "apps/designer/document/ProjectDocument.h"
#include "apps/designer/editors/ListEditor.h"
#include "apps/designer/editors/VariablesModel.h"
#include "apps/designer/scripts/ScriptPane.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QTabWidget>
#include <QTreeView>

/// What belongs to the project as a whole: variables, included files, scripts for its actions.
class TProjectPane final : public QTabWidget
{
    Q_OBJECT

public:
    explicit TProjectPane(TProjectDocument& Document);

    [[nodiscard]] TVariablesModel& Variables() { return FVariables; }
    [[nodiscard]] TScriptPane& Scripts() { return *FScripts; }

signals:
    void Refused(const QString& Reason);

private:
    QWidget* MakeGeneral();
    QWidget* MakeVariables();
    void ShowProject();
    void Change(const QString& Name, const std::function<void(TProject&)>& Edit);
    void TakeScript(const QString& Name, const QString& Text);
    [[nodiscard]] QString AskForInclude();

    TProjectDocument& FDocument;
    TVariablesModel FVariables;
    QLineEdit* FName;
    QCheckBox* FFollowsIDE;
    TListEditor* FIncludes;
    QTreeView* FTable;
    TScriptPane* FScripts;
};
