#include "apps/designer/pages/PanelView.h"

#include "apps/designer/QtText.h"

#include <QGroupBox>

TPanelView::TPanelView(TPanel& Panel)
    : TControlView(Panel), FWidget(Panel.Caption.empty() ? new QWidget : new QGroupBox)
{}

void TPanelView::Show()
{
    if (auto* Box = qobject_cast<QGroupBox*>(FWidget))
        Box->setTitle(ToQt(Control().Caption));
}
