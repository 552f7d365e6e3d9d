#pragma once

#include "apps/designer/document/ProjectDocument.h"

#include <QAbstractTableModel>

/// The variables of a project: those of included files, which only show, then its own.
class TVariablesModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum TColumn { NameColumn, ValueColumn, SecretColumn, ColumnCount };

    explicit TVariablesModel(TProjectDocument& Document);

    /// Adds one behind the last and gives its row.
    int Add();
    void Remove(int Row);
    [[nodiscard]] bool IsOwn(int Row) const;

    [[nodiscard]] int rowCount(const QModelIndex& Parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex& Parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& Index, int Role) const override;
    [[nodiscard]] QVariant headerData(int Section, Qt::Orientation Orientation, int Role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& Index) const override;
    bool setData(const QModelIndex& Index, const QVariant& Value, int Role) override;

signals:
    void Refused(const QString& Reason);

private:
    [[nodiscard]] const std::pair<std::string, std::string>& Variable(int Row) const;
    [[nodiscard]] std::size_t OwnPlace(int Row) const;
    [[nodiscard]] bool IsSecret(int Row) const;
    bool Change(const QString& Name, const std::function<void(TProject&)>& Edit);

    TProjectDocument& FDocument;
    int FRows = 0; ///< that are shown
};
