#pragma once

#include "apps/designer/RoomyRows.h"

#include <functional>
#include <string>

struct TQXProperty;

/// How the text of a file or folder becomes the path at which a dialog begins, and the chosen path a text.
struct TPathTexts
{
    using TChange = std::function<std::string(const std::string&)>;
    TChange ToPath;
    TChange ToText;
};

/// Gives each property the editor of its type.
class TPropertyDelegate final : public TRoomyRows
{
    Q_OBJECT

public:
    using TRoomyRows::TRoomyRows;

    /// The class whose property editors count.
    std::string ClassName;
    /// Without them paths are texts as they stand.
    TPathTexts Paths;

    QWidget* createEditor(QWidget* Parent, const QStyleOptionViewItem& Option, const QModelIndex& Index) const override;
    void setEditorData(QWidget* Editor, const QModelIndex& Index) const override;
    void setModelData(QWidget* Editor, QAbstractItemModel* Model, const QModelIndex& Index) const override;
    void updateEditorGeometry(QWidget* Editor, const QStyleOptionViewItem& Option,
                              const QModelIndex& Index) const override;

private:
    [[nodiscard]] QWidget* MakeTextEditor(QWidget* Parent, const TQXProperty& Property) const;
    [[nodiscard]] bool AskForPath(QWidget* Parent, const TQXProperty& Property, std::string& Path) const;
    [[nodiscard]] QString Browse(QWidget* Parent, const TQXProperty& Property, const QString& Text) const;
};
