#include "apps/designer/MessageBar.h"

#include <QHBoxLayout>

#include <utility>

TMessageBar::TMessageBar() : FText(new QLabel), FYes(new QPushButton), FNo(new QPushButton)
{
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    FText->setForegroundRole(QPalette::ToolTipText);
    FText->setWordWrap(true);
    FText->setTextFormat(Qt::PlainText);
    auto* Layout = new QHBoxLayout(this);
    Layout->addWidget(FText, 1);
    Layout->addWidget(FYes);
    Layout->addWidget(FNo);
    const auto Close = [this](std::function<void()>& Do) {
        hide();
        if (const auto Taken = std::exchange(Do, nullptr))
            Taken();
    };
    connect(FYes, &QPushButton::clicked, this, [this, Close] { Close(FOnYes); });
    connect(FNo, &QPushButton::clicked, this, [this, Close] { Close(FOnNo); });
    hide();
}

void TMessageBar::Show(const QString& Text)
{
    Ask(Text, {}, nullptr, tr("&Close"), nullptr);
}

void TMessageBar::Ask(const QString& Text, const QString& Yes, std::function<void()> OnYes, const QString& No,
                      std::function<void()> OnNo)
{
    FText->setText(Text);
    FYes->setText(Yes);
    FYes->setVisible(!Yes.isEmpty());
    FNo->setText(No);
    FOnYes = std::move(OnYes);
    FOnNo = std::move(OnNo);
    show();
}
