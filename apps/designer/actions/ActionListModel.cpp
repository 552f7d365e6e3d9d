#include "apps/designer/actions/ActionListModel.h"

#include "apps/designer/Images.h"
#include "apps/designer/QtText.h"
#include "apps/designer/Theme.h"
#include "apps/designer/actions/ActionPalette.h"
#include "apps/designer/document/ActionEdits.h"
#include "host/QXServices.h"

#include <QApplication>
#include <QFont>
#include <QMimeData>

#include <algorithm>

namespace
{
constexpr const char* PlacesMimeType = "application/x-quexley-places";

QIcon ImageOf(const TProjectAction& Action)
{
    const TQXActionRegistration* Registration = QXActionServices().FindAction(Action.Type);
    return Images::Find(Registration ? Registration->ImageName : std::string());
}
} // namespace

TActionListModel::TActionListModel(TProjectDocument& Document) : FDocument(Document)
{
    connect(&Document, &TProjectDocument::Replaced, this, [this] {
        // Who edits a cell stays there.
        if (FStates.size() == static_cast<std::size_t>(FDocument.Count()))
            return emit dataChanged(index(0, 0), index(rowCount({}) - 1, StateColumn));
        beginResetModel();
        FStates.resize(static_cast<std::size_t>(FDocument.Count()));
        endResetModel();
    });
}

void TActionListModel::ClearStates()
{
    std::fill(FStates.begin(), FStates.end(), TActionState{});
    emit dataChanged(index(0, 0), index(rowCount({}) - 1, StateColumn));
}

void TActionListModel::EndRunning()
{
    for (std::size_t Place = 0; Place < FStates.size(); ++Place)
        if (FStates[Place].Kind == TActionState::TKind::Running)
            SetState(static_cast<int>(Place), {TActionState::TKind::Terminated, 0});
}

void TActionListModel::SetState(int Place, const TActionState& State)
{
    if (Place < 0 || Place >= FDocument.Count())
        return;
    FStates[static_cast<std::size_t>(Place)] = State;
    emit dataChanged(index(RowOf(Place), 0), index(RowOf(Place), StateColumn));
}

int TActionListModel::rowCount(const QModelIndex& Parent) const
{
    return Parent.isValid() ? 0 : static_cast<int>(FStates.size()) + 1;
}

int TActionListModel::columnCount(const QModelIndex& Parent) const
{
    return Parent.isValid() ? 0 : ColumnCount;
}

QVariant TActionListModel::headerData(int Section, Qt::Orientation Orientation, int Role) const
{
    if (Orientation != Qt::Horizontal || Role != Qt::DisplayRole)
        return {};
    return QStringList{tr("Action"), tr("Group"), tr("Result")}.at(Section);
}

QVariant TActionListModel::data(const QModelIndex& Index, int Role) const
{
    if (!Index.isValid() || PlaceOf(Index) >= FDocument.Count())
        return {};
    return PlaceOf(Index) < 0 ? ProjectData(Index.column(), Role) : ActionData(PlaceOf(Index), Index.column(), Role);
}

QVariant TActionListModel::ProjectData(int Column, int Role) const
{
    if (Column != NameColumn)
        return {};
    if (Role == Qt::DisplayRole)
        return ToQt(FDocument.Project().Name);
    if (Role == Qt::ToolTipRole)
        return tr("The project: its variables, secrets, scripts and included files");
    if (Role == Qt::FontRole)
    {
        QFont Font;
        Font.setBold(true);
        return Font;
    }
    return {};
}

QVariant TActionListModel::ActionData(int Place, int Column, int Role) const
{
    const TProjectAction& Action = FDocument.Project().Actions[static_cast<std::size_t>(Place)];
    if (Role == Qt::ToolTipRole)
        return FDocument.Project().IsIncluded(Action)
                   ? tr("%1, of the included file %2").arg(ToQt(Action.Type), ToQt(Action.File))
                   : ToQt(Action.Type);
    if (Role == Qt::ForegroundRole && (!Action.Enabled || FDocument.Project().IsIncluded(Action)))
        return Themes::Colour(Themes::TMeaning::Quiet, QApplication::palette());
    if (Role == Qt::ForegroundRole && Column == StateColumn)
        return StateColour(Place);
    if (Column == NameColumn && Role == Qt::DisplayRole)
        return QStringLiteral("%1  %2").arg(Place + 1).arg(ToQt(Action.Name));
    if (Column == NameColumn && Role == Qt::EditRole)
        return ToQt(Action.Name);
    if (Column == NameColumn && Role == Qt::CheckStateRole)
        return Action.Enabled ? Qt::Checked : Qt::Unchecked;
    if (Column == NameColumn && Role == Qt::DecorationRole)
        return ImageOf(Action);
    if (Column == GroupColumn && (Role == Qt::DisplayRole || Role == Qt::EditRole))
        return ToQt(Action.Group);
    if (Column == StateColumn && Role == Qt::DisplayRole)
        return StateText(Place);
    return {};
}

QVariant TActionListModel::StateText(int Place) const
{
    const TActionState& State = FStates[static_cast<std::size_t>(Place)];
    const QString Seconds = tr("%1 s").arg(State.Seconds, 0, 'f', 1);
    switch (State.Kind)
    {
    case TActionState::TKind::None:
        return {};
    case TActionState::TKind::Running:
        return tr("running");
    case TActionState::TKind::Success:
        return tr("ok, %1").arg(Seconds);
    case TActionState::TKind::Failure:
        return tr("failed, %1").arg(Seconds);
    case TActionState::TKind::Skipped:
        return tr("skipped");
    case TActionState::TKind::Terminated:
        return tr("ended");
    case TActionState::TKind::Planned:
        return tr("planned");
    }
    return {};
}

QVariant TActionListModel::StateColour(int Place) const
{
    using TKind = TActionState::TKind;
    const TKind Kind = FStates[static_cast<std::size_t>(Place)].Kind;
    if (Kind == TKind::Failure || Kind == TKind::Terminated)
        return Themes::Colour(Themes::TMeaning::Error, QApplication::palette());
    if (Kind == TKind::Success)
        return Themes::Colour(Themes::TMeaning::Success, QApplication::palette());
    return {};
}

Qt::ItemFlags TActionListModel::flags(const QModelIndex& Index) const
{
    constexpr Qt::ItemFlags Plain = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (!Index.isValid())
        return Qt::ItemIsDropEnabled;
    const int Place = PlaceOf(Index);
    if (Place >= FDocument.Count())
        return Plain;
    if (Place < 0 || FDocument.Project().IsIncluded(FDocument.Project().Actions[static_cast<std::size_t>(Place)]))
        return Plain | Qt::ItemIsDropEnabled;
    const Qt::ItemFlags Movable = Plain | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled;
    if (Index.column() == NameColumn)
        return Movable | Qt::ItemIsUserCheckable | Qt::ItemIsEditable;
    return Index.column() == GroupColumn ? Movable | Qt::ItemIsEditable : Movable;
}

bool TActionListModel::setData(const QModelIndex& Index, const QVariant& Value, int Role)
{
    const int Place = PlaceOf(Index);
    const std::string Text = FromQt(Value.toString());
    if (Role == Qt::CheckStateRole)
    {
        const bool Enabled = Value.toInt() == Qt::Checked;
        Edit(Enabled ? tr("Enable") : tr("Disable"), Place, [=](TProjectAction& Action) { Action.Enabled = Enabled; });
    }
    else if (Role == Qt::EditRole && Index.column() == NameColumn)
        Edit(tr("Rename"), Place, [&](TProjectAction& Action) { Action.Name = Text; });
    else if (Role == Qt::EditRole && Index.column() == GroupColumn)
        Edit(tr("Group"), Place, [&](TProjectAction& Action) { Action.Group = Text; });
    else
        return false;
    return true;
}

void TActionListModel::Edit(const QString& Name, int Place, const std::function<void(TProjectAction&)>& Edit)
{
    Tell(FDocument.Change(Name, [&](TProject& Project) { return ActionEdits::Apply(Project, {Place}, Edit); }));
}

void TActionListModel::Tell(const QString& Reason)
{
    if (!Reason.isEmpty())
        emit Refused(Reason);
}

QStringList TActionListModel::mimeTypes() const
{
    return {QString::fromLatin1(PlacesMimeType), QString::fromLatin1(ClassMimeType)};
}

QMimeData* TActionListModel::mimeData(const QModelIndexList& Indexes) const
{
    QByteArrayList Places;
    for (const QModelIndex& Index : Indexes)
        if (Index.column() == NameColumn && PlaceOf(Index) >= 0)
            Places.append(QByteArray::number(PlaceOf(Index)));
    auto Data = std::make_unique<QMimeData>();
    Data->setData(QString::fromLatin1(PlacesMimeType), Places.join(' '));
    return Data.release();
}

Qt::DropActions TActionListModel::supportedDropActions() const
{
    return Qt::CopyAction | Qt::MoveAction;
}

/// On an action means behind it.
bool TActionListModel::dropMimeData(const QMimeData* Data, Qt::DropAction /*Action*/, int Row, int /*Column*/,
                                    const QModelIndex& Parent)
{
    int Place = FDocument.Count();
    if (Row >= 0)
        Place = std::max(Row - 1, 0);
    else if (Parent.isValid())
        Place = PlaceOf(Parent) + 1;
    if (Data->hasFormat(QString::fromLatin1(ClassMimeType)))
    {
        const std::string Class = Data->data(QString::fromLatin1(ClassMimeType)).toStdString();
        Tell(FDocument.Change(tr("Add"), [&](TProject& Project) { return ActionEdits::Add(Project, Class, Place); }));
        return true;
    }
    TPlaces Places;
    for (const QByteArray& Each : Data->data(QString::fromLatin1(PlacesMimeType)).split(' '))
        Places.push_back(Each.toInt());
    std::sort(Places.begin(), Places.end());
    Tell(FDocument.Change(tr("Move"), [&](TProject& Project) { return ActionEdits::Move(Project, Places, Place); }));
    return true;
}
