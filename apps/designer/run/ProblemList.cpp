#include "apps/designer/run/ProblemList.h"

#include "apps/designer/RoomyRows.h"
#include "apps/designer/Theme.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

TProblemList::TProblemList()
{
    setRootIsDecorated(false);
    setItemDelegate(new TRoomyRows(this));
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAccessibleName(tr("Problems"));
    setHeaderLabels({tr("Action"), tr("Setting"), tr("Problem")});
    constexpr int RowsThatCount = 50; // for the width of a column
    header()->setResizeContentsPrecision(RowsThatCount);
    header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* Item) { Choose(Item); });
}

void TProblemList::Clear()
{
    FProblems.clear();
    clear();
    for (const TProblem& Problem : FStanding)
        AddRow(Problem);
    emit Changed();
}

void TProblemList::SetStanding(std::vector<TProblem> Problems)
{
    FStanding = std::move(Problems);
    Clear();
}

void TProblemList::Add(const std::vector<TProblem>& Problems)
{
    const auto Stands = [this](const TProblem& Problem) {
        return std::any_of(FStanding.begin(), FStanding.end(),
                           [&](const TProblem& Standing) { return Standing.Text == Problem.Text; });
    };
    for (const TProblem& Problem : Problems)
        if (!Stands(Problem))
            AddRow(Problem);
    if (!currentItem() && topLevelItemCount() > 0)
        setCurrentItem(topLevelItem(0));
    emit Changed();
}

void TProblemList::AddRow(const TProblem& Problem)
{
    FProblems.push_back(Problem);
    QString Where = Problem.Name.isEmpty() ? tr("Project") : Problem.Name;
    if (Problem.Action > 0)
        Where.prepend(QStringLiteral("%1  ").arg(Problem.Action));
    auto* Item = new QTreeWidgetItem(this, {Where, Problem.Label, Problem.Text.simplified()});
    Item->setToolTip(2, Problem.Text);
    const auto Meaning = Problem.IsError ? Themes::TMeaning::Error : Themes::TMeaning::Warning;
    Item->setForeground(2, Themes::Colour(Meaning, palette()));
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
