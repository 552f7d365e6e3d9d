#pragma once

#include "apps/designer/scripts/ScriptEditor.h"

#include <QLabel>
#include <QListWidget>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <string>
#include <vector>

/// A script as the pane shows it.
struct TShownScript
{
    std::string Name;
    std::string Text;
    std::vector<std::string> Parameters{}; ///< with the word "out" behind those that are read back
};

/// Scripts by name with an editor, which checks what is written as validation does.
class TScriptPane final : public QWidget
{
    Q_OBJECT

public:
    TScriptPane();

    /// Shows these; the current one stays the current one if it is among them.
    void Show(std::vector<TShownScript> Scripts);
    /// Gives why a text of the named script cannot be read, and the line; an empty reason if it can.
    std::function<std::pair<int, QString>(const std::string& Name, const std::string& Text)> Check;
    /// Goes to a script; false if there is none of this name.
    bool Select(const QString& Name);
    void SetReadOnly(bool IsReadOnly) { FEditor->setReadOnly(IsReadOnly); }
    [[nodiscard]] TScriptEditor& Editor() { return *FEditor; }

signals:
    void Edited(const QString& Name, const QString& Text);

private:
    void ShowCurrent();
    void CheckCurrent();
    void TakeEdit();
    void MarkUsed(int Row);

    std::vector<TShownScript> FScripts;
    QListWidget* FNames;
    TScriptEditor* FEditor;
    QLabel* FParameters;
    QLabel* FReason;
    QTimer FPause;
    bool FIsShowing = false;
};
