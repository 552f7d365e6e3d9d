#pragma once

#include "apps/designer/pages/SurfaceView.h"
#include "host/QXForms.h"
#include "runtime/forms/PageUser.h"

#include <QDialog>

/// Shows a small form of a package until its user ends it.
class TFormDialog final : public QDialog
{
    Q_OBJECT

public:
    TFormDialog(QWidget* Parent, TForm& Form);

protected:
    void reject() override;

private:
    void AfterAct();

    TForm& FForm;
    TPageUser FUser;
    TSurfaceView* FView;
};
