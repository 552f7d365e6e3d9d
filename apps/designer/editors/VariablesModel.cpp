#include "apps/designer/editors/VariablesModel.h"

#include "apps/designer/QtText.h"
#include "apps/designer/Theme.h"
#include "platform/Text.h"

#include <QApplication>

#include <algorithm>
#include <utility>

namespace
{
bool Holds(const std::vector<std::string>& Names, const std::string& Name)
{
    return std::any_of(Names.begin(), Names.end(), [&](const auto& Each) { return Texts::Same(Each, Name); });
}

/// "Variable", or with a number behind it that no other has.
std::string NewName(const TProject& Project)
{
    const TVariables::TPairs All = Project.AllVariables();
    const auto IsTaken = [&](const std::string& Name) {
        return std::any_of(All.begin(), All.end(), [&](const auto& Pair) { return Texts::Same(Pair.first, Name); });
    };
    std::string Name = "Variable";
    for (int Number = 2; IsTaken(Name); ++Number)
        Name = "Variable" + std::to_string(Number);
    return Name;
}
} // namespace

TVariablesModel::TVariablesModel(TProjectDocument& Document) : FDocument(Document)
{
    connect(&Document, &TProjectDocument::Replaced, this, [this] {
        const int Rows = rowCount({});
        if (std::exchange(FRows, Rows) == Rows && Rows > 0) // who edits a cell stays there
            return emit dataChanged(index(0, 0), index(Rows - 1, SecretColumn));
        beginResetModel();
        endResetModel();
    });
}

bool TVariablesModel::IsOwn(int Row) const
{
    return static_cast<std::size_t>(Row) >= FDocument.Project().Included.Variables.size();
}

std::size_t TVariablesModel::OwnPlace(int Row) const
{
    return static_cast<std::size_t>(Row) - FDocument.Project().Included.Variables.size();
}

const std::pair<std::string, std::string>& TVariablesModel::Variable(int Row) const
{
    const TProject& Project = FDocument.Project();
    return IsOwn(Row) ? Project.Variables[OwnPlace(Row)] : Project.Included.Variables[static_cast<std::size_t>(Row)];
}

bool TVariablesModel::IsSecret(int Row) const
{
    return Holds(FDocument.Project().AllSecrets(), Variable(Row).first);
}

int TVariablesModel::rowCount(const QModelIndex& Parent) const
{
    const TProject& Project = FDocument.Project();
    return Parent.isValid() ? 0 : static_cast<int>(Project.Included.Variables.size() + Project.Variables.size());
}

int TVariablesModel::columnCount(const QModelIndex& Parent) const
{
    return Parent.isValid() ? 0 : ColumnCount;
}

QVariant TVariablesModel::headerData(int Section, Qt::Orientation Orientation, int Role) const
{
    if (Orientation != Qt::Horizontal || Role != Qt::DisplayRole)
        return {};
    return QStringList{tr("Variable"), tr("Value"), tr("Secret")}.at(Section);
}

QVariant TVariablesModel::data(const QModelIndex& Index, int Role) const
{
    if (!Index.isValid() || Index.row() >= rowCount({}))
        return {};
    if (Role == Qt::ForegroundRole && !IsOwn(Index.row()))
        return Themes::Colour(Themes::TMeaning::Quiet, QApplication::palette());
    if (Role == Qt::ToolTipRole && !IsOwn(Index.row()))
        return tr("Set by an included file");
    if (Index.column() == SecretColumn)
        return Role == Qt::CheckStateRole ? QVariant(IsSecret(Index.row()) ? Qt::Checked : Qt::Unchecked) : QVariant();
    const auto& [Name, Value] = Variable(Index.row());
    if (Index.column() == ValueColumn && Role == Qt::DisplayRole && IsSecret(Index.row()))
        return QStringLiteral("***");
    return Role == Qt::DisplayRole || Role == Qt::EditRole ? ToQt(Index.column() == NameColumn ? Name : Value)
                                                           : QVariant();
}

Qt::ItemFlags TVariablesModel::flags(const QModelIndex& Index) const
{
    const Qt::ItemFlags Plain = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (!Index.isValid() || !IsOwn(Index.row()))
        return Plain;
    return Plain | (Index.column() == SecretColumn ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}

bool TVariablesModel::Change(const QString& Name, const std::function<void(TProject&)>& Edit)
{
    const QString Reason = FDocument.Change(Name, [&](TProject& Project) {
        Edit(Project);
        return TPlaces();
    });
    if (!Reason.isEmpty())
        emit Refused(Reason);
    return Reason.isEmpty();
}

bool TVariablesModel::setData(const QModelIndex& Index, const QVariant& Value, int Role)
{
    const std::string Text = FromQt(Value.toString());
    const std::string Name = Variable(Index.row()).first;
    const std::size_t Place = OwnPlace(Index.row());
    if (Role == Qt::CheckStateRole)
        return Change(tr("Secret"), [&](TProject& Project) {
            std::erase_if(Project.Secrets, [&](const auto& Each) { return Texts::Same(Each, Name); });
            if (Value.toInt() == Qt::Checked)
                Project.Secrets.push_back(Name);
        });
    if (Role != Qt::EditRole || data(Index, Qt::EditRole).toString() == Value.toString())
        return false;
    if (Index.column() == ValueColumn)
        return Change(tr("Change Variable"), [&](TProject& Project) { Project.Variables[Place].second = Text; });
    return Change(tr("Rename Variable"), [&](TProject& Project) {
        Project.Variables[Place].first = Text;
        for (std::string& Secret : Project.Secrets)
            if (Texts::Same(Secret, Name))
                Secret = Text;
    });
}

int TVariablesModel::Add()
{
    Change(tr("Add Variable"), [](TProject& Project) { Project.Variables.emplace_back(NewName(Project), ""); });
    return rowCount({}) - 1;
}

void TVariablesModel::Remove(int Row)
{
    if (Row < 0 || !IsOwn(Row))
        return;
    Change(tr("Remove Variable"), [&](TProject& Project) {
        Project.Variables.erase(Project.Variables.begin() + static_cast<std::ptrdiff_t>(OwnPlace(Row)));
    });
}
