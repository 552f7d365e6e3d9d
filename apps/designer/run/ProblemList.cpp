#include "apps/designer/run/ProblemList.h"

#include "apps/designer/RoomyRows.h"
#include "apps/designer/Theme.h"

#include <QHeaderView>
#include <QKeyEvent>

TProblemList::TProblemList()
{
    setRootIsDecorated(false);
    setItemDelegate(new TRoomyRows(this));
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAccessibleName(tr("Problems"));
    setHeaderLabels({tr("Action"), tr("Setting"), tr("Problem")});
    header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* Item) { Choose(Item); });
}

void TProblemList::Clear()
{
    FProblems.clear();
    clear();
}

void TProblemList::Add(const std::vector<TProblem>& Problems)
{
    for (const TProblem& Problem : Problems)
    {
        FProblems.push_back(Problem);
        const QString Action =
            Problem.Action > 0 ? QStringLiteral("%1  %2").arg(Problem.Action).arg(Problem.Name) : tr("Project");
        auto* Item = new QTreeWidgetItem(this, {Action, Problem.Label, Problem.Text.simplified()});
        Item->setToolTip(2, Problem.Text);
        const auto Meaning = Problem.IsError ? Themes::TMeaning::Error : Themes::TMeaning::Warning;
        Item->setForeground(2, Themes::Colour(Meaning, palette()));
    }
    if (!currentItem() && topLevelItemCount() > 0)
        setCurrentItem(topLevelItem(0));
}

void TProblemList::Choose(const QTreeWidgetItem* Item)
{
    if (Item)
        emit Chosen(FProblems[static_cast<std::size_t>(indexOfTopLevelItem(const_cast<QTreeWidgetItem*>(Item)))]);
}

void TProblemList::keyPressEvent(QKeyEvent* Event)
{
    if (Event->key() == Qt::Key_Return || Event->key() == Qt::Key_Enter)
        Choose(currentItem());
    else
        QTreeWidget::keyPressEvent(Event);
}
