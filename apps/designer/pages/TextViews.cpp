#include "apps/designer/pages/TextViews.h"

#include "apps/designer/QtText.h"
#include "apps/designer/pages/LowView.h"

#include <QHBoxLayout>
#include <QShortcut>
#include <QToolButton>

namespace
{
TStringList LinesOf(const QString& Text)
{
    TStringList Lines;
    Lines.SetText(FromQt(Text));
    return Lines;
}
} // namespace

TEditView::TEditView(TEdit& Edit, TPageUser& User, const TShorten& Shorten)
    : TControlView(Edit), FModel(Edit), FWidget(new QWidget), FEdit(new QLineEdit)
{
    auto* Layout = new QHBoxLayout(FWidget);
    Layout->setContentsMargins({});
    Layout->setSpacing(2);
    Layout->addWidget(FEdit);
    FWidget->setFocusProxy(FEdit);
    QObject::connect(FEdit, &QLineEdit::textEdited, FEdit,
                     [this, &User](const QString& Text) { Act([&] { User.Type(FModel, FromQt(Text)); }); });
    if (Edit.OnBrowse)
        AddButton(QStringLiteral("…"), QObject::tr("Browse"), QStringLiteral("Ctrl+Return"),
                  [this, &User, Shorten] { Browse(User, Shorten); });
    if (Edit.OnAccept)
        AddButton(QStringLiteral("+"), QObject::tr("Add"), QStringLiteral("Return"),
                  [this, &User] { Act([&] { User.Accept(FModel); }); });
}

void TEditView::AddButton(const QString& Caption, const QString& Name, const QString& Key, std::function<void()> Do)
{
    auto* Button = new QToolButton;
    Button->setText(Caption);
    Button->setAccessibleName(Name);
    Button->setToolTip(QStringLiteral("%1 (%2)").arg(Name, QKeySequence(Key).toString(QKeySequence::NativeText)));
    Button->setFocusPolicy(Qt::TabFocus);
    FWidget->layout()->addWidget(Button);
    QObject::connect(Button, &QToolButton::clicked, Button, Do);
    auto* Shortcut = new QShortcut(QKeySequence(Key), FEdit);
    Shortcut->setContext(Qt::WidgetShortcut);
    QObject::connect(Shortcut, &QShortcut::activated, Button, std::move(Do));
}

void TEditView::Browse(TPageUser& User, const TShorten& Shorten)
{
    Act([&] {
        const std::string Before = FModel.Text;
        User.Browse(FModel);
        if (!Shorten || FModel.Text == Before)
            return;
        if (const std::string Short = Shorten(FModel.Text); Short != FModel.Text)
            User.Type(FModel, Short);
    });
}

/// The cursor stays where it is as long as the text does.
void TEditView::Show()
{
    FEdit->setEchoMode(FModel.IsSecret ? QLineEdit::Password : QLineEdit::Normal);
    if (FEdit->text() != ToQt(FModel.Text))
        FEdit->setText(ToQt(FModel.Text));
}

TMemoView::TMemoView(TMemo& Memo, TPageUser& User)
    : TControlView(Memo), FModel(Memo), FEdit(new TLowView<QPlainTextEdit>)
{
    FEdit->setTabChangesFocus(true);
    FEdit->setUndoRedoEnabled(false); // what is undone is a step of the project
    QObject::connect(FEdit, &QPlainTextEdit::textChanged, FEdit,
                     [this, &User] { Act([&] { User.Type(FModel, LinesOf(FEdit->toPlainText())); }); });
}

void TMemoView::Show()
{
    if (LinesOf(FEdit->toPlainText()) == FModel.Lines)
        return;
    QStringList Lines;
    for (const std::string& Line : FModel.Lines)
        Lines.append(ToQt(Line));
    FEdit->setPlainText(Lines.join(QLatin1Char('\n')));
}
