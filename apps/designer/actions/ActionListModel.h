#pragma once

#include "apps/designer/document/ProjectDocument.h"

#include <QAbstractTableModel>

#include <optional>
#include <vector>

/// How an action's last run went.
struct TActionState
{
    enum class TKind { None, Running, Success, Failure, Skipped, Terminated, Planned };
    TKind Kind = TKind::None;
    double Seconds = 0;
};

/// The project in its first row, then its actions.
class TActionListModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum TColumn { NameColumn, GroupColumn, StateColumn, ColumnCount };

    explicit TActionListModel(TProjectDocument& Document);

    /// The row of an action, and the action of a row; -1 is the project.
    [[nodiscard]] static int RowOf(int Place) { return Place + 1; }
    [[nodiscard]] static int PlaceOf(const QModelIndex& Index) { return Index.row() - 1; }

    void ClearStates();
    /// Whatever runs has ended.
    void EndRunning();
    void SetState(int Place, const TActionState& State);

    [[nodiscard]] int rowCount(const QModelIndex& Parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex& Parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& Index, int Role) const override;
    [[nodiscard]] QVariant headerData(int Section, Qt::Orientation Orientation, int Role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& Index) const override;
    bool setData(const QModelIndex& Index, const QVariant& Value, int Role) override;
    [[nodiscard]] QStringList mimeTypes() const override;
    [[nodiscard]] QMimeData* mimeData(const QModelIndexList& Indexes) const override;
    [[nodiscard]] Qt::DropActions supportedDropActions() const override;
    bool dropMimeData(const QMimeData* Data, Qt::DropAction Action, int Row, int Column,
                      const QModelIndex& Parent) override;

signals:
    /// An edit in the list was not possible.
    void Refused(const QString& Reason);

private:
    [[nodiscard]] QVariant ProjectData(int Column, int Role) const;
    [[nodiscard]] QVariant ActionData(int Place, int Column, int Role) const;
    [[nodiscard]] QVariant StateText(int Place) const;
    [[nodiscard]] QVariant StateColour(int Place) const;
    void Edit(const QString& Name, int Place, const std::function<void(TProjectAction&)>& Edit);
    void Tell(const QString& Reason);

    TProjectDocument& FDocument;
    std::vector<TActionState> FStates; ///< as many as there are actions
};
