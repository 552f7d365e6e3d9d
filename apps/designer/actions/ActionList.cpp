#include "apps/designer/actions/ActionList.h"

#include "apps/designer/QtText.h"
#include "apps/designer/RoomyRows.h"
#include "apps/designer/document/ActionEdits.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QInputDialog>
#include <QPainter>

#include <algorithm>

TActionList::TActionList(TProjectDocument& Document) : FDocument(Document), FModel(Document)
{
    setModel(&FModel);
    setRootIsDecorated(false);
    setItemDelegate(new TRoomyRows(this));
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setDragDropMode(QAbstractItemView::DragDrop);
    setDefaultDropAction(Qt::MoveAction);
    setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
    setAccessibleName(tr("Actions of the project"));
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(TActionListModel::NameColumn, QHeaderView::Stretch);
    header()->setSectionResizeMode(TActionListModel::GroupColumn, QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(TActionListModel::StateColumn, QHeaderView::ResizeToContents);
    connect(&FModel, &TActionListModel::Refused, this, &TActionList::Refused);
    // After the model, which was connected first.
    connect(&Document, &TProjectDocument::Replaced, this, [this](const TPlaces& Places) {
        Select(!Places.empty() || FCurrent < 0 ? Places : TPlaces{FCurrent});
        setColumnHidden(TActionListModel::GroupColumn, Groups().size() < 2);
    });
    Select({});
    setColumnHidden(TActionListModel::GroupColumn, true);
}

TPlaces TActionList::Selected() const
{
    TPlaces Places;
    for (const QModelIndex& Index : selectionModel()->selectedRows())
        if (TActionListModel::PlaceOf(Index) >= 0)
            Places.push_back(TActionListModel::PlaceOf(Index));
    std::sort(Places.begin(), Places.end());
    return Places;
}

int TActionList::Current() const
{
    return currentIndex().isValid() ? TActionListModel::PlaceOf(currentIndex()) : -1;
}

void TActionList::Select(const TPlaces& Places)
{
    const int Last = FDocument.Count() - 1;
    const int Current = Places.empty() ? -1 : std::min(Places.front(), Last);
    selectionModel()->setCurrentIndex(FModel.index(TActionListModel::RowOf(Current), 0),
                                      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    for (const int Place : Places)
        if (Place <= Last)
            selectionModel()->select(FModel.index(TActionListModel::RowOf(Place), 0),
                                     QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void TActionList::currentChanged(const QModelIndex& Current, const QModelIndex& Previous)
{
    QTreeView::currentChanged(Current, Previous);
    if (!Current.isValid())
        return;
    FCurrent = TActionListModel::PlaceOf(Current);
    emit CurrentChanged(FCurrent);
}

/// Whoever comes by keyboard is on a row at once.
void TActionList::focusInEvent(QFocusEvent* Event)
{
    QTreeView::focusInEvent(Event);
    if (!currentIndex().isValid())
        setCurrentIndex(FModel.index(0, 0));
}

/// An empty list says how it is filled.
void TActionList::paintEvent(QPaintEvent* Event)
{
    QTreeView::paintEvent(Event);
    if (FDocument.Count() > 0)
        return;
    QPainter Painter(viewport());
    Painter.setPen(palette().color(QPalette::PlaceholderText));
    constexpr int Margin = 24;
    Painter.drawText(viewport()->rect().adjusted(Margin, Margin, -Margin, -Margin), Qt::AlignCenter | Qt::TextWordWrap,
                     tr("Actions are added from the palette: double click, drag, or Ctrl+F and Enter.\n\n"
                        "Projects that are there already: File, Import."));
}

void TActionList::Change(const QString& Name, const std::function<TPlaces(TProject&)>& Edit)
{
    const QString Reason = FDocument.Change(Name, Edit);
    if (!Reason.isEmpty())
        emit Refused(Reason);
}

void TActionList::Add(const QString& ClassName)
{
    const TPlaces Places = Selected();
    const int Place = Places.empty() ? FDocument.Count() : Places.back() + 1;
    Change(tr("Add"), [&](TProject& Project) { return ActionEdits::Add(Project, FromQt(ClassName), Place); });
}

void TActionList::Remove()
{
    const TPlaces Places = Selected();
    if (!Places.empty())
        Change(tr("Remove"), [&](TProject& Project) { return ActionEdits::Remove(Project, Places); });
}

void TActionList::Duplicate()
{
    const TPlaces Places = Selected();
    if (!Places.empty())
        Change(tr("Duplicate"), [&](TProject& Project) { return ActionEdits::Duplicate(Project, Places); });
}

void TActionList::MoveBy(int Rows)
{
    const TPlaces Places = Selected();
    if (Places.empty())
        return;
    TPlaces Moved = Places;
    Change(Rows < 0 ? tr("Move Up") : tr("Move Down"),
           [&](TProject& Project) { return Moved = ActionEdits::Shift(Project, Places, Rows); });
    if (Selected() != Moved) // past its like, which changes nothing in the file
        Select(Moved);
}

void TActionList::ToggleEnabled()
{
    const TPlaces Places = Selected();
    if (Places.empty())
        return;
    const bool Enabled = !FDocument.Action(Places.front()).Enabled;
    Change(Enabled ? tr("Enable") : tr("Disable"), [&](TProject& Project) {
        return ActionEdits::Apply(Project, Places, [=](TProjectAction& Action) { Action.Enabled = Enabled; });
    });
}

void TActionList::Rename()
{
    edit(FModel.index(currentIndex().row(), TActionListModel::NameColumn));
}

QStringList TActionList::Groups() const
{
    QStringList Groups;
    for (const TProjectAction& Action : FDocument.Project().Actions)
        Groups.append(ToQt(Action.Group));
    Groups.append(QString());
    Groups.removeDuplicates();
    Groups.sort();
    return Groups;
}

void TActionList::AskGroup()
{
    const TPlaces Places = Selected();
    if (Places.empty())
        return;
    bool IsGiven = false;
    const QStringList Known = Groups();
    const auto Place = Known.indexOf(ToQt(FDocument.Action(Places.front()).Group));
    const QString Group = QInputDialog::getItem(this, tr("Group"), tr("&Group of the selected actions:"), Known,
                                                static_cast<int>(Place), true, &IsGiven);
    if (IsGiven)
        Change(tr("Group"), [&](TProject& Project) {
            return ActionEdits::Apply(Project, Places, [&](TProjectAction& Action) { Action.Group = FromQt(Group); });
        });
}

void TActionList::CopyOut() const
{
    if (const TPlaces Places = Selected(); !Places.empty())
        QApplication::clipboard()->setText(ToQt(ActionEdits::Copy(FDocument.Project(), Places)));
}

void TActionList::Paste()
{
    const std::string Text = FromQt(QApplication::clipboard()->text());
    const TPlaces Places = Selected();
    const int Place = Places.empty() ? FDocument.Count() : Places.back() + 1;
    Change(tr("Paste"), [&](TProject& Project) { return ActionEdits::Paste(Project, Text, Place); });
}
