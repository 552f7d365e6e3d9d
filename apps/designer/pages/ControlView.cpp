#include "apps/designer/pages/ControlView.h"

#include "apps/designer/QtText.h"
#include "runtime/forms/PageUser.h"

#include <QScopedValueRollback>

void TControlView::Sync()
{
    const QScopedValueRollback Syncing(FIsSyncing, true);
    Widget().setVisible(FControl.Visible);
    Widget().setEnabled(FControl.Enabled);
    if (Field().toolTip().isEmpty())
        Field().setToolTip(ToQt(FControl.Hint));
    Show();
}

void TControlView::Guard(const std::function<void()>& Do)
try
{
    Do();
}
catch (const EPageUseError&)
{
    Sync();
}
