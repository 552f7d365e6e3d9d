#pragma once

#include "apps/designer/pages/ControlView.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

/// Arranges the controls of a page or panel below each other, labels before or above their fields, and what is short
/// beside what it belongs to.
class TPageLayout
{
public:
    TPageLayout(const TContainer& Container, QWidget& Holder);

    /// Places the next control, in order of creation. Gives its label, or null if it needs none.
    QLabel* Add(TControlView& View);
    /// All are placed: what lists do not take stays empty below them.
    void Finish();

private:
    void AddRow(QWidget& Widget);
    void AddLabel(TControlView& View);
    void AddButton(TControlView& View);
    QLabel* AddField(TControlView& View);
    QLabel* AddLabelledField(TControlView& View);
    void AddUnlabelledField(TControlView& View);
    QHBoxLayout& AddLine(Qt::Alignment Alignment = {});
    /// The row of what was placed last, for what stands beside it.
    QHBoxLayout& LineOfLast();
    [[nodiscard]] const TControl* Before() const { return FLast ? &FLast->Control() : nullptr; }
    [[nodiscard]] bool IsBefore(TQXControlKind Kind) const { return FLast && FLast->Control().Kind() == Kind; }

    QGridLayout& FGrid;
    TControlView* FLast = nullptr;
    QHBoxLayout* FLine = nullptr; ///< in which the last one stands, if in one
    bool FIsLabelBeside = false;  ///< of the last one
    bool FIsIndented = false;     ///< the last one belongs to a button
    bool FHasTall = false;
    bool FIsForm = false;
};
