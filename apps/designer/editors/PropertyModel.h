#pragma once

#include "host/QXProperties.h"

#include <QAbstractTableModel>

#include <string>
#include <vector>

/// The published properties of an object, a row each, with their values.
class TPropertyModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum TColumn { NameColumn, ValueColumn, ColumnCount };

    /// The object, and a new one of its class for the defaults; both must outlive the model or its next Show. The
    /// properties that Hidden names have no row.
    void Show(TQXPersistent* Object, const TQXPersistent* Defaults, const TStringList& Hidden, bool IsReadOnly);
    /// The values may have changed.
    void Refresh();

    [[nodiscard]] const TQXProperty& Property(int Row) const { return *FRows[static_cast<std::size_t>(Row)].Property; }
    [[nodiscard]] int RowOf(std::string_view Name) const; ///< -1 if there is none
    [[nodiscard]] bool IsDefault(int Row) const;
    /// Gives a property a value.
    void Write(int Row, const TQXPropertyValue& Value);
    void Reset(int Row);

    [[nodiscard]] int rowCount(const QModelIndex& Parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex& Parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& Index, int Role) const override;
    [[nodiscard]] QVariant headerData(int Section, Qt::Orientation Orientation, int Role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& Index) const override;
    bool setData(const QModelIndex& Index, const QVariant& Value, int Role) override;

signals:
    /// The user changed a property.
    void Changed(const QString& Name);

private:
    struct TRow
    {
        const TQXProperty* Property = nullptr;
        TQXPropertyValue Default;
    };
    [[nodiscard]] QString ValueText(int Row) const;

    std::vector<TRow> FRows;
    bool FIsReadOnly = false;
};
