#include "apps/designer/pages/PageLayout.h"

#include "apps/designer/QtText.h"
#include "host/QXForms.h"

#include <QRegularExpression>

namespace
{
constexpr int LongLabel = 30;    // characters: a label that is longer stands above its field
constexpr int ShortCaption = 12; // characters: beside a button of one is room for a list to pick from
constexpr int Indent = 22;       // of a field below the button that it belongs to
constexpr int Room = 8;          // above a heading and below a panel

bool IsButtonLike(const TControl& Control)
{
    return Control.Kind() == TQXControlKind::CheckBox || Control.Kind() == TQXControlKind::RadioButton;
}

/// Whether a control is as high as there is room.
bool IsTall(const TControl& Control)
{
    const TQXControlKind Kind = Control.Kind();
    return Kind == TQXControlKind::Memo || Kind == TQXControlKind::ListBox || Kind == TQXControlKind::CheckList ||
           Kind == TQXControlKind::Grid || Kind == TQXControlKind::ListView;
}

/// Whether a field without a caption goes with the control before it: any with a heading or a radio button, with a
/// check box one that it switches on, which fills no list.
bool Belongs(const TControl& Field, const TControl* Before)
{
    if (!Before || Before->Kind() == TQXControlKind::Label || !IsButtonLike(*Before))
        return Before && Before->Kind() == TQXControlKind::Label;
    const bool FillsList = Field.Kind() == TQXControlKind::Edit && static_cast<const TEdit&>(Field).OnAccept;
    return Before->Kind() == TQXControlKind::RadioButton || (!IsTall(Field) && !FillsList);
}

bool HasLabel(const TControl& Control)
{
    const TQXControlKind Kind = Control.Kind();
    return IsTall(Control) || Kind == TQXControlKind::Edit || Kind == TQXControlKind::ComboBox;
}

/// Whether it is a list to pick from, which is as wide as its entries.
bool IsNarrow(const TControl& Control)
{
    return Control.Kind() == TQXControlKind::ComboBox && !static_cast<const TComboBox&>(Control).IsEditable;
}

/// A heading is written like a title, a note is a sentence or an example.
bool IsHeading(const std::string& Caption)
{
    static const QRegularExpression Title(
        QStringLiteral("^([A-Z.][A-Za-z./]*|[a-z]{1,3})( ([A-Z.][A-Za-z./]*|[a-z]{1,3}))*$"));
    return Title.match(ToQt(Caption)).hasMatch();
}

void ShowAsHeading(QWidget& Label, bool IsFirst)
{
    QFont Font = Label.font();
    Font.setBold(true);
    Label.setFont(Font);
    Label.setContentsMargins(0, IsFirst ? 0 : Room, 0, 0);
}

void ShowAsCaption(QWidget& Label)
{
    Label.setFont(QFont());
    Label.setForegroundRole(QPalette::NoRole);
    Label.setContentsMargins({});
}
} // namespace

TPageLayout::TPageLayout(const TContainer& Container, QWidget& Holder) : FGrid(*new QGridLayout(&Holder))
{
    FGrid.setColumnStretch(1, 1);
    if (const TControl* Panel = Container.AsControl(); Panel && Panel->Caption.empty())
        FGrid.setContentsMargins(0, 0, 0, Room);
    FIsForm = dynamic_cast<const TForm*>(&Container) != nullptr;
}

QLabel* TPageLayout::Add(TControlView& View)
{
    QLabel* Label = nullptr;
    if (HasLabel(View.Control()))
        Label = AddField(View);
    else if (View.Control().Kind() == TQXControlKind::Label)
        AddLabel(View);
    else if (View.Control().Kind() == TQXControlKind::Button)
        AddButton(View);
    else
        AddRow(View.Widget());
    FHasTall |= IsTall(View.Control());
    FLast = &View;
    return Label;
}

void TPageLayout::Finish()
{
    if (!FHasTall)
        FGrid.setRowStretch(FGrid.rowCount(), 1);
    FGrid.parentWidget()->setSizePolicy(QSizePolicy::Preferred,
                                        FHasTall ? QSizePolicy::Expanding : QSizePolicy::Preferred);
}

void TPageLayout::AddRow(QWidget& Widget)
{
    FLine = nullptr;
    FIsLabelBeside = false;
    FIsIndented = false;
    FGrid.addWidget(&Widget, FGrid.rowCount(), 0, 1, 2);
}

QHBoxLayout& TPageLayout::AddLine(Qt::Alignment Alignment)
{
    FLine = new QHBoxLayout;
    FIsLabelBeside = false;
    FLine->addSpacing(FIsIndented ? Indent : 0);
    FGrid.addLayout(FLine, FGrid.rowCount(), 0, 1, 2, Alignment);
    return *FLine;
}

QHBoxLayout& TPageLayout::LineOfLast()
{
    if (FLine)
        return *FLine;
    int Row = 0;
    int Column = 0;
    int Rows = 0;
    int Columns = 0;
    FGrid.getItemPosition(FGrid.indexOf(&FLast->Widget()), &Row, &Column, &Rows, &Columns);
    FGrid.removeWidget(&FLast->Widget());
    FLine = new QHBoxLayout;
    FLine->addWidget(&FLast->Widget(), IsBefore(TQXControlKind::ComboBox) && !IsNarrow(FLast->Control()) ? 1 : 0);
    FGrid.addLayout(FLine, Row, Column, Rows, Columns);
    return *FLine;
}

/// A unit stands beside the list that it belongs to, a note below the field before it.
void TPageLayout::AddLabel(TControlView& View)
{
    const std::string& Caption = View.Control().Caption;
    QWidget& Label = View.Widget();
    if (IsHeading(Caption))
    {
        ShowAsHeading(Label, !FLast);
        return AddRow(Label);
    }
    Label.setForegroundRole(QPalette::PlaceholderText);
    if (FLast && IsNarrow(FLast->Control()) && !Caption.empty() && Caption.find(' ') == std::string::npos)
    {
        LineOfLast().addWidget(&Label, 1);
        return;
    }
    const int Column = FIsLabelBeside ? 1 : 0;
    FGrid.addWidget(&Label, FGrid.rowCount(), Column, 1, 2 - Column);
    FLine = nullptr;
    FIsIndented = false;
}

/// Buttons that follow each other stand beside each other, and beside a text that can be picked, too; those that end a
/// form stand on the right.
void TPageLayout::AddButton(TControlView& View)
{
    const bool IsBeside =
        IsBefore(TQXControlKind::Button) || (IsBefore(TQXControlKind::ComboBox) && !IsNarrow(FLast->Control()));
    (IsBeside ? LineOfLast() : AddLine(FIsForm ? Qt::AlignRight : Qt::AlignLeft)).addWidget(&View.Widget());
}

QLabel* TPageLayout::AddField(TControlView& View)
{
    if (!View.Control().Caption.empty())
        return AddLabelledField(View);
    AddUnlabelledField(View);
    return nullptr;
}

/// Belongs to the heading, box or button before it, which names it.
void TPageLayout::AddUnlabelledField(TControlView& View)
{
    const TControl& Control = View.Control();
    const bool GoesWithIt = Belongs(Control, Before());
    std::string_view Name = Control.Hint.empty() ? Control.Name() : std::string_view(Control.Hint);
    if (GoesWithIt)
        Name = Before()->Caption;
    View.Field().setAccessibleName(ToQt(Name));
    const bool IsOfButton = GoesWithIt && IsButtonLike(*Before());
    if (IsOfButton && IsNarrow(Control) && Before()->Caption.size() <= ShortCaption)
    {
        LineOfLast().addWidget(&View.Widget());
        FLine->addStretch();
        return;
    }
    if (GoesWithIt && !IsOfButton)
        ShowAsCaption(FLast->Widget());
    FIsIndented |= IsOfButton; // and what follows without a caption of its own
    QHBoxLayout& Line = AddLine();
    Line.addWidget(&View.Widget());
    if (IsNarrow(Control))
        Line.addStretch();
    FGrid.setRowStretch(FGrid.rowCount() - 1, IsTall(Control) ? 1 : 0);
}

/// The label stands before the field, or above it where either needs the room.
QLabel* TPageLayout::AddLabelledField(TControlView& View)
{
    const TControl& Control = View.Control();
    const int Row = FGrid.rowCount();
    auto* Label = new QLabel(ToQt(Control.Caption));
    Label->setBuddy(&View.Field());
    Label->setWordWrap(Control.Caption.size() > LongLabel);
    View.Field().setAccessibleName(Label->text().remove(QLatin1Char('&')));
    FIsLabelBeside = !IsTall(Control) && Control.Caption.size() <= LongLabel;
    FLine = nullptr;
    FIsIndented = false;
    FGrid.addWidget(Label, Row, 0, 1, FIsLabelBeside ? 1 : 2);
    const auto Alignment = IsNarrow(Control) ? Qt::AlignLeft : Qt::Alignment();
    if (FIsLabelBeside)
        FGrid.addWidget(&View.Widget(), Row, 1, Alignment);
    else
        FGrid.addWidget(&View.Widget(), Row + 1, 0, 1, 2, Alignment);
    if (IsTall(Control))
        FGrid.setRowStretch(Row + 1, 1);
    return Label;
}
