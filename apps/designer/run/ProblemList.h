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

    /// All but the standing ones.
    void Clear();
    /// Those that stand already are not repeated.
    void Add(const std::vector<TProblem>& Problems);
    /// What holds as long as the program runs, whatever is opened, validated or run.
    void SetStanding(std::vector<TProblem> Problems);
    [[nodiscard]] const std::vector<TProblem>& Problems() const { return FProblems; }

signals:
    /// Enter, or a double click.
    void Chosen(const TProblem& Problem);
    void Changed();

protected:
    void keyPressEvent(QKeyEvent* Event) override;

private:
    void Choose(const QTreeWidgetItem* Item);
    void AddRow(const TProblem& Problem);

    std::vector<TProblem> FStanding;
    std::vector<TProblem> FProblems;
};
