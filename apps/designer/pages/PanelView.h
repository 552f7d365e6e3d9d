#pragma once

#include "apps/designer/pages/ControlView.h"

/// A panel: a frame with its caption, or nothing but room for what stands on it.
class TPanelView final : public TControlView
{
public:
    explicit TPanelView(TPanel& Panel);
    QWidget& Widget() override { return *FWidget; }
    void Show() override;

private:
    QWidget* FWidget;
};
