#include "apps/designer/pages/ChoiceViews.h"

#include "apps/designer/QtText.h"

#include <QLineEdit>
#include <QRegularExpression>

TLabelView::TLabelView(TLabel& Label) : TControlView(Label), FLabel(new QLabel)
{
    FLabel->setWordWrap(true);
    FLabel->setTextFormat(Qt::PlainText);
}

void TLabelView::Show()
{
    FLabel->setText(ToQt(Control().Caption));
}

TCheckBoxView::TCheckBoxView(TCheckBox& Box, TPageUser& User)
    : TControlView(Box), FModel(Box), FBox(new QCheckBox), FCaption(*FBox, Box.Caption)
{
    QObject::connect(FBox, &QCheckBox::clicked, FBox,
                     [this, &User](bool Checked) { Act([&] { User.Tick(FModel, Checked); }); });
}

void TCheckBoxView::Show()
{
    FCaption.SetCaption(FModel.Caption);
    FBox->setChecked(FModel.Checked);
}

/// The model says which one is checked: buttons of a container on several widgets exclude each other, too.
TRadioButtonView::TRadioButtonView(TRadioButton& Button, TPageUser& User)
    : TControlView(Button), FModel(Button), FButton(new QRadioButton), FCaption(*FButton, Button.Caption)
{
    FButton->setAutoExclusive(false);
    // Arrow keys and clicks alike.
    QObject::connect(FButton, &QRadioButton::clicked, FButton, [this, &User] {
        Act([&] { User.Pick(FModel); });
        FButton->setChecked(FModel.IsChecked());
    });
}

void TRadioButtonView::Show()
{
    FCaption.SetCaption(FModel.Caption);
    FButton->setChecked(FModel.IsChecked());
}

TButtonView::TButtonView(TButton& Button, TPageUser& User) : TControlView(Button), FButton(new QPushButton)
{
    FButton->setAutoDefault(false);
    QObject::connect(FButton, &QPushButton::clicked, FButton, [this, &User] { Act([&] { User.Click(Control()); }); });
}

void TButtonView::Show()
{
    // A letter that opens a menu of the window does nothing else.
    static const QRegularExpression Taken(QStringLiteral("(?<!&)&(?=[FEARVH])"));
    FButton->setText(ToQt(Control().Caption).remove(Taken));
}

TComboBoxView::TComboBoxView(TComboBox& List, TPageUser& User) : TControlView(List), FModel(List), FBox(new QComboBox)
{
    FBox->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    constexpr int Narrowest = 70; // where long entries have no room
    FBox->setMinimumWidth(Narrowest);
    QObject::connect(FBox, &QComboBox::activated, FBox,
                     [this, &User](int Index) { Act([&] { User.Pick(FModel, static_cast<std::size_t>(Index)); }); });
    QObject::connect(FBox, &QComboBox::editTextChanged, FBox, [this, &User](const QString& Text) {
        if (FModel.Text != FromQt(Text))
            Act([&] { User.Type(FModel, FromQt(Text)); });
    });
}

void TComboBoxView::Show()
{
    FBox->setEditable(FModel.IsEditable);
    QStringList Items;
    for (const std::string& Item : FModel.Items)
        Items.append(ToQt(Item));
    QStringList Shown;
    for (int Index = 0; Index < FBox->count(); ++Index)
        Shown.append(FBox->itemText(Index));
    if (Items != Shown)
    {
        FBox->clear();
        FBox->addItems(Items);
    }
    const auto Selected = FModel.Selected();
    FBox->setCurrentIndex(Selected ? static_cast<int>(*Selected) : -1);
    if (FModel.IsEditable && FBox->currentText() != ToQt(FModel.Text))
        FBox->setEditText(ToQt(FModel.Text));
}
