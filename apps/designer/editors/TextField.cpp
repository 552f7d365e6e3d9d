#include "apps/designer/editors/TextField.h"

#include <QHBoxLayout>
#include <QShortcut>

TTextField::TTextField(QWidget* Parent, std::function<QString(const QString&)> Ask)
    : QWidget(Parent), FEdit(new QLineEdit(this)), FButton(new QToolButton(this)), FAsk(std::move(Ask))
{
    FButton->setText(QStringLiteral("…"));
    FButton->setAccessibleName(tr("Edit in a dialog"));
    FButton->setToolTip(tr("Edit in a dialog (Ctrl+Enter)"));
    auto* Layout = new QHBoxLayout(this);
    Layout->setContentsMargins({});
    Layout->setSpacing(0);
    Layout->addWidget(FEdit);
    Layout->addWidget(FButton);
    setFocusProxy(FEdit);
    setAutoFillBackground(true);
    connect(FEdit, &QLineEdit::textEdited, this, [this](const QString& Text) { FText = Text; });
    connect(FButton, &QToolButton::clicked, this, &TTextField::AskForText);
    auto* Key = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Return), this);
    Key->setContext(Qt::WidgetWithChildrenShortcut);
    connect(Key, &QShortcut::activated, this, &TTextField::AskForText);
}

void TTextField::SetText(const QString& Text)
{
    FText = Text;
    const bool HasLines = Text.contains(QLatin1Char('\n'));
    FEdit->setText(HasLines ? tr("(several lines)") : Text);
    FEdit->setReadOnly(HasLines);
}

void TTextField::AskForText()
{
    const QString Text = FAsk(FText);
    if (Text == FText)
        return;
    SetText(Text);
    emit Answered();
}
