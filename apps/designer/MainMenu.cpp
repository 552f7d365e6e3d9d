#include "apps/designer/MainMenu.h"

#include <QMenuBar>

TMenuBuilder::TMenuBuilder(QMainWindow& Window) : FWindow(Window), FTools(Window.addToolBar(QObject::tr("Tools")))
{
    FTools->setObjectName(QStringLiteral("Tools"));
    FTools->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    FTools->setMovable(false);
    constexpr int IconSize = 16;
    FTools->setIconSize({IconSize, IconSize});
}

QMenu* TMenuBuilder::Menu(const QString& Caption)
{
    return FMenu = FWindow.menuBar()->addMenu(Caption);
}

QAction* TMenuBuilder::Command(const QString& Caption, const QKeySequence& Key, std::function<void()> Do)
{
    QAction* Action = FMenu->addAction(Caption);
    Action->setShortcut(Key);
    QObject::connect(Action, &QAction::triggered, &FWindow, std::move(Do));
    return Action;
}

QAction* TMenuBuilder::Tool(const QString& Caption, const QKeySequence& Key, const QIcon& Icon,
                            std::function<void()> Do)
{
    QAction* Action = Command(Caption, Key, std::move(Do));
    Action->setIcon(Icon);
    FTools->addAction(Action);
    return Action;
}

void TMenuBuilder::Separator()
{
    FMenu->addSeparator();
}

void TMenuBuilder::ToolSeparator()
{
    FTools->addSeparator();
}
