#pragma once

#include "apps/designer/pages/ControlView.h"
#include "apps/designer/pages/LowView.h"
#include "runtime/forms/PageUser.h"

#include <QTableWidget>

/// A table whose keys go to the page first.
class TKeyTable final : public TLowView<QTableWidget>
{
    Q_OBJECT

public:
    std::function<bool(const std::string& Key)> OnKey;

protected:
    void keyPressEvent(QKeyEvent* Event) override;
};

class TGridView final : public TControlView
{
public:
    TGridView(TGrid& Grid, TPageUser& User);
    QWidget& Widget() override { return *FWidget; }
    QWidget& Field() override { return *FTable; }
    void Show() override;

private:
    bool Press(const std::string& Key);
    void TakeCell(int Row, int Column);
    void Ellipsis(int Row);

    TGrid& FModel;
    TPageUser& FUser;
    QWidget* FWidget;
    TKeyTable* FTable;
};
