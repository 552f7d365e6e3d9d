#pragma once

#include <QAction>
#include <QList>
#include <QMainWindow>
#include <QMenu>
#include <QToolBar>

#include <functional>

/// Puts commands into the menus and the tool bar of a window.
class TMenuBuilder
{
public:
    explicit TMenuBuilder(QMainWindow& Window);

    /// Begins a menu; the commands that follow stand in it.
    QMenu* Menu(const QString& Caption);
    /// A menu inside the menu.
    QMenu* SubMenu(const QString& Caption) { return FMenu->addMenu(Caption); }
    QAction* Command(const QString& Caption, const QKeySequence& Key, std::function<void()> Do);
    /// The same, also in the tool bar under an icon of the style or the theme.
    QAction* Tool(const QString& Caption, const QKeySequence& Key, const QIcon& Icon, std::function<void()> Do);
    void Separator();
    void ToolSeparator();

private:
    QMainWindow& FWindow;
    QMenu* FMenu = nullptr;
    QToolBar* FTools;
};
