#include "apps/designer/editors/TextDialog.h"

#include "apps/designer/dialogs/OkAndCancel.h"

#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

bool EditLines(QWidget* Parent, const QString& Title, const QString& Note, QString& Text)
{
    QDialog Dialog(Parent);
    Dialog.setWindowTitle(Title);
    auto* Edit = new QPlainTextEdit(Text);
    Edit->setTabChangesFocus(true);
    auto* Label = new QLabel(Note);
    Label->setBuddy(Edit);
    auto* Layout = new QVBoxLayout(&Dialog);
    Layout->addWidget(Label);
    Layout->addWidget(Edit);
    Layout->addWidget(OkAndCancel(Dialog));
    constexpr QSize Size(520, 320);
    Dialog.resize(Size);
    if (Dialog.exec() != QDialog::Accepted)
        return false;
    Text = Edit->toPlainText();
    return true;
}

QString AskForLines(QWidget* Parent, const QString& Title, const QString& Note, const QString& Text)
{
    QString New = Text;
    return EditLines(Parent, Title, Note, New) ? New : Text;
}
