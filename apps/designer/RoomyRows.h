#pragma once

#include <QStyledItemDelegate>

#include <algorithm>

/// Gives the rows of a list a little more height than their text needs.
class TRoomyRows : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& Option, const QModelIndex& Index) const override
    {
        constexpr int Room = 6;
        const QSize Size = QStyledItemDelegate::sizeHint(Option, Index);
        return {Size.width(), std::max(Size.height(), Option.fontMetrics.height() + Room)};
    }
};
