#include "apps/designer/editors/SetDialog.h"

#include "apps/designer/QtText.h"
#include "apps/designer/dialogs/OkAndCancel.h"
#include "host/QXProperties.h"

#include <QCheckBox>
#include <QDialog>
#include <QVBoxLayout>

QString AskForSet(QWidget* Parent, const TQXProperty& Property, const QString& Text)
{
    QDialog Dialog(Parent);
    Dialog.setWindowTitle(ToQt(Property.Name));
    auto* Layout = new QVBoxLayout(&Dialog);
    const QStringList Chosen = Text.split(QLatin1Char('\n'));
    QList<QCheckBox*> Boxes;
    for (const std::string_view Element : Property.Elements)
    {
        Boxes.append(new QCheckBox(ToQt(Element)));
        Boxes.back()->setChecked(Chosen.contains(ToQt(Element)));
        Layout->addWidget(Boxes.back());
    }
    Layout->addWidget(OkAndCancel(Dialog));
    if (Dialog.exec() != QDialog::Accepted)
        return Text;
    QStringList Result;
    for (const QCheckBox* Box : Boxes)
        if (Box->isChecked())
            Result.append(Box->text());
    return Result.join(QLatin1Char('\n'));
}
