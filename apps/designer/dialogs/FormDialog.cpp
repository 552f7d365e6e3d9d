#include "apps/designer/dialogs/FormDialog.h"

#include "apps/designer/QtText.h"

#include <QVBoxLayout>

TFormDialog::TFormDialog(QWidget* Parent, TForm& Form)
    : QDialog(Parent), FForm(Form), FUser([this] { AfterAct(); }), FView(new TSurfaceView(Form, FUser))
{
    setWindowTitle(ToQt(Form.Title));
    auto* Layout = new QVBoxLayout(this);
    Layout->addWidget(FView);
    Form.ApplyRules();
    FView->Sync();
    constexpr QSize Size(440, 360);
    resize(sizeHint().expandedTo(Size));
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
