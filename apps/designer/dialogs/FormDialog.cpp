#include "apps/designer/dialogs/FormDialog.h"

#include "apps/designer/QtText.h"

#include <QPushButton>
#include <QVBoxLayout>

TFormDialog::TFormDialog(QWidget* Parent, TForm& Form)
    : QDialog(Parent), FForm(Form), FUser([this] { AfterAct(); }), FView(new TSurfaceView(Form, FUser))
{
    setWindowTitle(ToQt(Form.Title));
    auto* Layout = new QVBoxLayout(this);
    Layout->addWidget(FView);
    Form.ApplyRules();
    FView->Sync();
    const bool Grows = FView->sizePolicy().verticalPolicy() == QSizePolicy::Expanding;
    resize(sizeHint().expandedTo({440, Grows ? 360 : 0}));
    if (TControlView* Ok = FView->Find("btnOK"))
        static_cast<QPushButton&>(Ok->Widget()).setDefault(true);
}

void TFormDialog::AfterAct()
{
    FForm.ApplyRules();
    FView->Sync();
    if (FForm.IsClosed())
        done(FForm.IsAccepted() ? QDialog::Accepted : QDialog::Rejected);
}

void TFormDialog::reject()
{
    FForm.Close(false);
    QDialog::reject();
}
