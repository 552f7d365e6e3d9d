#pragma once

#include <QDialog>
#include <QDialogButtonBox>

/// The two buttons that end a dialog.
[[nodiscard]] inline QDialogButtonBox* OkAndCancel(QDialog& Dialog)
{
    auto* Buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QObject::connect(Buttons, &QDialogButtonBox::accepted, &Dialog, &QDialog::accept);
    QObject::connect(Buttons, &QDialogButtonBox::rejected, &Dialog, &QDialog::reject);
    return Buttons;
}
