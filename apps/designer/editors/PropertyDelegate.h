#pragma once

#include "apps/designer/RoomyRows.h"

#include <functional>
#include <string>

struct TQXProperty;

/// Gives each property the editor of its type.
class TPropertyDelegate final : public TRoomyRows
{
    Q_OBJECT

public:
    using TRoomyRows::TRoomyRows;

    /// The class whose property editors count.
    std::string ClassName;
    /// Turns a text into one from which a dialog can begin.
    std::function<std::string(const std::string&)> Expand;

    QWidget* createEditor(QWidget* Parent, const QStyleOptionViewItem& Option, const QModelIndex& Index) const override;
    void setEditorData(QWidget* Editor, const QModelIndex& Index) const override;
    void setModelData(QWidget* Editor, QAbstractItemModel* Model, const QModelIndex& Index) const override;
    void updateEditorGeometry(QWidget* Editor, const QStyleOptionViewItem& Option,
                              const QModelIndex& Index) const override;

private:
    [[nodiscard]] QWidget* MakeTextEditor(QWidget* Parent, const TQXProperty& Property) const;
    [[nodiscard]] QString Browse(QWidget* Parent, const TQXProperty& Property, const QString& Text) const;
};
