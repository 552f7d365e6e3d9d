#include "apps/designer/pages/ListViews.h"

#include "apps/designer/QtText.h"
#include "apps/designer/RoomyRows.h"
#include "apps/designer/pages/KeyNames.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

namespace
{
/// Whether the control took the key.
bool Pressed(TPageUser& User, TControl& Control, const std::string& Key, std::optional<std::size_t> Row)
try
{
    (void)User.Press(Control, Key, Row);
    return true;
}
catch (const EPageUseError&)
{
    return false;
}

std::optional<std::size_t> CurrentRow(const QTreeWidget& List)
{
    const int Row = List.currentIndex().row();
    return Row < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(Row));
}

/// Makes the rows of a list those texts, unless they are.
void ShowRows(QTreeWidget& List, const QList<QStringList>& Rows, Qt::ItemFlags Extra = {})
{
    QList<QStringList> Shown;
    for (int Row = 0; Row < List.topLevelItemCount(); ++Row)
    {
        QStringList Texts;
        for (int Column = 0; Column < List.columnCount(); ++Column)
            Texts.append(List.topLevelItem(Row)->text(Column));
        Shown.append(Texts);
    }
    if (Shown == Rows)
        return;
    List.clear();
    for (const QStringList& Texts : Rows)
    {
        auto* Item = new QTreeWidgetItem(&List, Texts);
        Item->setFlags(Item->flags() | Extra);
    }
}
} // namespace

TKeyList::TKeyList()
{
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setHeaderHidden(true);
    setAllColumnsShowFocus(true);
    setItemDelegate(new TRoomyRows(this));
}

TQXIndices TKeyList::Rows() const
{
    TQXIndices Result;
    for (const QModelIndex& Index : selectionModel()->selectedRows())
        Result.push_back(static_cast<std::size_t>(Index.row()));
    std::sort(Result.begin(), Result.end());
    return Result;
}

void TKeyList::SelectRows(const TQXIndices& Wanted)
{
    if (Rows() == Wanted)
        return;
    clearSelection();
    for (const std::size_t Row : Wanted)
        if (auto* Item = topLevelItem(static_cast<int>(Row)))
            Item->setSelected(true);
}

void TKeyList::keyPressEvent(QKeyEvent* Event)
{
    const std::string Key = KeyName(*Event);
    const bool IsMove = Key == "Up" || Key == "Down";
    if (Key.empty() || IsMove || !OnKey || !OnKey(Key))
        QTreeWidget::keyPressEvent(Event);
}

TListBoxView::TListBoxView(TListBox& List, TPageUser& User) : TControlView(List), FModel(List), FList(new TKeyList)
{
    FList->setSelectionMode(List.IsMultiSelect ? QAbstractItemView::ExtendedSelection
                                               : QAbstractItemView::SingleSelection);
    FList->OnKey = [this, &User](const std::string& Key) { return Pressed(User, FModel, Key, CurrentRow(*FList)); };
    QObject::connect(FList, &QTreeWidget::itemSelectionChanged, FList,
                     [this, &User] { Act([&] { User.Select(FModel, FList->Rows()); }); });
    QObject::connect(FList, &QTreeWidget::itemActivated, FList,
                     [this, &User] { Act([&] { User.DoubleClick(FModel); }); });
}

void TListBoxView::Show()
{
    QList<QStringList> Rows;
    for (const std::string& Item : FModel.Items)
        Rows.append({ToQt(Item)});
    ShowRows(*FList, Rows);
    FList->SelectRows(FModel.Selected);
}

TListViewView::TListViewView(TListView& List, TPageUser& User) : TControlView(List), FModel(List), FList(new TKeyList)
{
    FList->setColumnCount(2);
    FList->header()->setStretchLastSection(false);
    FList->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    FList->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    FList->setSelectionMode(QAbstractItemView::ExtendedSelection);
    FList->OnKey = [this, &User](const std::string& Key) { return Pressed(User, FModel, Key, CurrentRow(*FList)); };
    QObject::connect(FList, &QTreeWidget::itemSelectionChanged, FList,
                     [this, &User] { Act([&] { User.Select(FModel, FList->Rows()); }); });
    QObject::connect(FList, &QTreeWidget::itemActivated, FList,
                     [this, &User] { Act([&] { User.DoubleClick(FModel); }); });
}

void TListViewView::Show()
{
    QList<QStringList> Rows;
    for (const TListView::TItem& Item : FModel.Items)
        Rows.append({ToQt(Item.Text), ToQt(Item.Kind)});
    ShowRows(*FList, Rows);
    FList->SelectRows(FModel.Selected);
}

TCheckListView::TCheckListView(TCheckList& List, TPageUser& User)
    : TControlView(List), FModel(List), FList(new TKeyList)
{
    QObject::connect(FList, &QTreeWidget::itemChanged, FList, [this, &User] {
        TQXIndices Checked;
        for (int Row = 0; Row < FList->topLevelItemCount(); ++Row)
            if (FList->topLevelItem(Row)->checkState(0) == Qt::Checked)
                Checked.push_back(static_cast<std::size_t>(Row));
        Act([&] { User.Check(FModel, Checked); });
    });
}

void TCheckListView::Show()
{
    QList<QStringList> Rows;
    for (const std::string& Item : FModel.Items)
        Rows.append({ToQt(Item)});
    ShowRows(*FList, Rows, Qt::ItemIsUserCheckable);
    for (int Row = 0; Row < FList->topLevelItemCount(); ++Row)
    {
        const bool IsChecked = std::find(FModel.Checked.begin(), FModel.Checked.end(), static_cast<std::size_t>(Row)) !=
                               FModel.Checked.end();
        FList->topLevelItem(Row)->setCheckState(0, IsChecked ? Qt::Checked : Qt::Unchecked);
    }
}
