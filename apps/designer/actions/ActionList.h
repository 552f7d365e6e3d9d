#pragma once

#include "apps/designer/actions/ActionListModel.h"

#include <QTreeView>

/// The project's list of actions: what is done to those that are selected.
class TActionList final : public QTreeView
{
    Q_OBJECT

public:
    explicit TActionList(TProjectDocument& Document);

    [[nodiscard]] TActionListModel& Model() { return FModel; }
    /// The selected actions.
    [[nodiscard]] TPlaces Selected() const;
    /// The current action, -1 for the project.
    [[nodiscard]] int Current() const;
    void Select(const TPlaces& Places);

    void Add(const QString& ClassName);
    void Remove();
    void Duplicate();
    void MoveBy(int Rows);
    void ToggleEnabled();
    void Rename();
    void AskGroup();
    void CopyOut() const;
    void Paste();

signals:
    void CurrentChanged(int Place);
    void Refused(const QString& Reason);

protected:
    void currentChanged(const QModelIndex& Current, const QModelIndex& Previous) override;
    void focusInEvent(QFocusEvent* Event) override;
    void paintEvent(QPaintEvent* Event) override;

private:
    void Change(const QString& Name, const std::function<TPlaces(TProject&)>& Edit);
    [[nodiscard]] QStringList Groups() const;

    TProjectDocument& FDocument;
    TActionListModel FModel;
    int FCurrent = -1; ///< is the current one again when all objects are new
};
