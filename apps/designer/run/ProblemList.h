#pragma once

#include "apps/designer/run/RunUpdate.h"

#include <QTreeWidget>

#include <vector>

/// What validation and runs have found, each with the way to its action.
class TProblemList final : public QTreeWidget
{
    Q_OBJECT

public:
    TProblemList();

    void Clear();
    void Add(const std::vector<TProblem>& Problems);
    [[nodiscard]] const std::vector<TProblem>& Problems() const { return FProblems; }

signals:
    /// Enter, or a double click.
    void Chosen(const TProblem& Problem);

protected:
    void keyPressEvent(QKeyEvent* Event) override;

private:
    void Choose(const QTreeWidgetItem* Item);

    std::vector<TProblem> FProblems;
};
