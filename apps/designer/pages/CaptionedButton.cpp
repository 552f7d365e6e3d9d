#include "apps/designer/pages/CaptionedButton.h"

#include "apps/designer/QtText.h"

#include <QHBoxLayout>
#include <QMouseEvent>

namespace
{
constexpr std::size_t LongCaption = 45; // characters

/// A caption that is clicked as its button is.
class TClickedLabel final : public QLabel
{
public:
    explicit TClickedLabel(QAbstractButton& Button) : FButton(Button) {}

protected:
    void mouseReleaseEvent(QMouseEvent* Event) override
    {
        if (Event->button() == Qt::LeftButton && rect().contains(Event->pos()))
            FButton.click();
    }

private:
    QAbstractButton& FButton;
};
} // namespace

TCaptionedButton::TCaptionedButton(QAbstractButton& Button, std::string_view Caption)
    : FButton(Button), FWidget(&Button)
{
    if (Caption.size() <= LongCaption)
        return;
    FWidget = new QWidget;
    FWidget->setFocusProxy(&Button);
    FLabel = new TClickedLabel(Button);
    FLabel->setWordWrap(true);
    FLabel->setBuddy(&Button);
    auto* Layout = new QHBoxLayout(FWidget);
    Layout->setContentsMargins({});
    // A caption of one line takes as much room as that of any other button.
    Button.setText(QStringLiteral("X"));
    const int Height = Button.sizeHint().height();
    Button.setText({});
    Button.setFixedHeight(Height);
    FLabel->setMinimumHeight(Height);
    Layout->addWidget(&Button, 0, Qt::AlignTop);
    Layout->addWidget(FLabel, 1);
}

void TCaptionedButton::SetCaption(std::string_view Caption)
{
    const QString Text = ToQt(Caption);
    if (!FLabel)
        return FButton.setText(Text);
    FLabel->setText(Text);
    FButton.setAccessibleName(QString(Text).remove(QLatin1Char('&')));
}
