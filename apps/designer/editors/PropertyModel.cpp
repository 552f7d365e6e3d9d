#include "apps/designer/editors/PropertyModel.h"

#include "apps/designer/QtText.h"

#include <QFont>

#include <algorithm>

namespace
{
constexpr int MaximumShown = 300; // characters of a value

/// A value on one line.
struct TTextOfValue
{
    QString operator()(const std::string& Text) const
    {
        return ToQt(Text).left(MaximumShown).replace(QLatin1Char('\n'), QStringLiteral(" ⏎ "));
    }
    QString operator()(bool Value) const { return Value ? TPropertyModel::tr("yes") : TPropertyModel::tr("no"); }
    QString operator()(int Value) const { return QString::number(Value); }
    QString operator()(const std::vector<std::string>& Items) const
    {
        QStringList Texts;
        for (const std::string& Item : Items)
            Texts.append(ToQt(Item));
        return Texts.join(QStringLiteral("; ")).left(MaximumShown);
    }
};

QString HelpOf(const TQXProperty& Property)
{
    return ToQt(Property.HelpText.empty() ? Property.Meaning : Property.HelpText);
}
} // namespace

void TPropertyModel::Show(TQXPersistent* Object, const TQXPersistent* Defaults, const TStringList& Hidden,
                          bool IsReadOnly)
{
    beginResetModel();
    FRows.clear();
    FIsReadOnly = IsReadOnly;
    const auto IsHidden = [&](std::string_view Name) {
        return std::find(Hidden.begin(), Hidden.end(), Name) != Hidden.end();
    };
    if (Object)
        for (const TQXProperty& Property : Object->Properties())
            if (Property.IsPersisted() && !IsHidden(Property.Name))
                FRows.push_back({&Property, Defaults->FindProperty(Property.Name)->Read()});
    endResetModel();
}

void TPropertyModel::Refresh()
{
    if (!FRows.empty())
        emit dataChanged(index(0, 0), index(rowCount({}) - 1, ValueColumn));
}

int TPropertyModel::RowOf(std::string_view Name) const
{
    for (std::size_t Row = 0; Row < FRows.size(); ++Row)
        if (FRows[Row].Property->Name == Name)
            return static_cast<int>(Row);
    return -1;
}

bool TPropertyModel::IsDefault(int Row) const
{
    return Property(Row).Read() == FRows[static_cast<std::size_t>(Row)].Default;
}

void TPropertyModel::Write(int Row, const TQXPropertyValue& Value)
{
    if (Property(Row).Read() == Value)
        return;
    Property(Row).Write(Value);
    Refresh(); // accessors of other properties may look at this one
    emit Changed(ToQt(Property(Row).Name));
}

void TPropertyModel::Reset(int Row)
{
    Write(Row, FRows[static_cast<std::size_t>(Row)].Default);
}

int TPropertyModel::rowCount(const QModelIndex& Parent) const
{
    return Parent.isValid() ? 0 : static_cast<int>(FRows.size());
}

int TPropertyModel::columnCount(const QModelIndex& Parent) const
{
    return Parent.isValid() ? 0 : ColumnCount;
}

QVariant TPropertyModel::headerData(int Section, Qt::Orientation Orientation, int Role) const
{
    if (Orientation != Qt::Horizontal || Role != Qt::DisplayRole)
        return {};
    return Section == NameColumn ? tr("Property") : tr("Value");
}

QString TPropertyModel::ValueText(int Row) const
{
    const TQXPropertyValue Value = Property(Row).Read();
    if (!Property(Row).IsSecret)
        return std::visit(TTextOfValue(), Value);
    const auto* Text = std::get_if<std::string>(&Value);
    return Text && Text->empty() ? QString() : QStringLiteral("***");
}

QVariant TPropertyModel::data(const QModelIndex& Index, int Role) const
{
    if (!Index.isValid())
        return {};
    if (Role == Qt::ToolTipRole)
        return HelpOf(Property(Index.row()));
    if (Role == Qt::FontRole)
    {
        QFont Font;
        Font.setBold(!IsDefault(Index.row()));
        return Font;
    }
    if (Index.column() == NameColumn)
        return Role == Qt::DisplayRole ? ToQt(Property(Index.row()).Name) : QVariant();
    if (const auto Value = Property(Index.row()).Read();
        Role == Qt::CheckStateRole && std::holds_alternative<bool>(Value))
        return std::get<bool>(Value) ? Qt::Checked : Qt::Unchecked;
    return Role == Qt::DisplayRole ? ValueText(Index.row()) : QVariant();
}

Qt::ItemFlags TPropertyModel::flags(const QModelIndex& Index) const
{
    const Qt::ItemFlags Plain = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (!Index.isValid() || FIsReadOnly || Index.column() != ValueColumn)
        return Plain;
    return Plain |
           (Property(Index.row()).Type == TQXPropertyType::Boolean ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}

bool TPropertyModel::setData(const QModelIndex& Index, const QVariant& Value, int Role)
{
    if (Role != Qt::CheckStateRole)
        return false;
    Write(Index.row(), Value.toInt() == Qt::Checked);
    return true;
}
