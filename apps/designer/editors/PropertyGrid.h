#pragma once

#include "apps/designer/editors/PropertyDelegate.h"
#include "apps/designer/editors/PropertyModel.h"

#include <QLabel>
#include <QTreeView>
#include <QWidget>

#include <memory>

/// All properties of an object in a grid, with what the current one means below it.
class TPropertyGrid final : public QWidget
{
    Q_OBJECT

public:
    TPropertyGrid();

    /// Defaults is a new object of the same class; Object must outlive the grid or its next Show.
    void Show(TQXPersistent* Object, std::unique_ptr<TQXPersistent> Defaults, const std::string& ClassName,
              const TStringList& Hidden, bool IsReadOnly);
    /// The values may have changed.
    void Refresh() { FModel.Refresh(); }
    /// Goes to a property; false if it has no row.
    bool Select(std::string_view Name);
    [[nodiscard]] TPropertyModel& Model() { return FModel; }
    [[nodiscard]] QTreeView& View() { return *FView; }
    void SetPaths(TPathTexts Paths) { FDelegate->Paths = std::move(Paths); }

signals:
    void Changed(const QString& Name);

private:
    void Explain(const QModelIndex& Current);
    void ResetCurrent();

    TPropertyModel FModel;
    std::unique_ptr<TQXPersistent> FDefaults;
    QTreeView* FView;
    TPropertyDelegate* FDelegate;
    QLabel* FMeaning;
};
