#include "apps/designer/pages/SurfaceView.h"

#include "apps/designer/QtText.h"
#include "apps/designer/pages/ChoiceViews.h"
#include "apps/designer/pages/GridView.h"
#include "apps/designer/pages/ListViews.h"
#include "apps/designer/pages/PanelView.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>

#include <stdexcept>

namespace
{
constexpr int LongLabel = 30; // characters: a label that is longer stands above its field
constexpr int Indent = 22;    // of a field below the button that it belongs to

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
} // namespace

TSurfaceView::TSurfaceView(const TSurface& Surface, TPageUser& User, TShorten Shorten)
    : FUser(User), FShorten(std::move(Shorten))
{
    Fill(Surface, *this);
}

/// What widgets tell while they go is nobody's wish, and the views are gone by then.
TSurfaceView::~TSurfaceView()
{
    for (QWidget* Widget : findChildren<QWidget*>())
        Widget->blockSignals(true);
}

void TSurfaceView::Fill(const TContainer& Container, QWidget& Holder)
{
    auto* Layout = new QGridLayout(&Holder);
    Layout->setColumnStretch(1, 1);
    if (const TControl* Panel = Container.AsControl(); Panel && Panel->Caption.empty())
        Layout->setContentsMargins({});
    const TControl* Before = nullptr;
    bool HasTall = false;
    for (TControl* Control : Container.Controls())
    {
        FViews.push_back(MakeView(*Control));
        TControlView& View = *FViews.back();
        View.Widget().setObjectName(ToQt(Control->Name()));
        View.Field().installEventFilter(this);
        Place(View, Before, *Layout);
        if (Control->Kind() == TQXControlKind::Panel)
            Fill(static_cast<const TPanel&>(*Control), View.Widget());
        HasTall |= IsTall(*Control);
        Before = Control;
    }
    if (!HasTall)
        Layout->setRowStretch(Layout->rowCount(), 1);
}

std::unique_ptr<TControlView> TSurfaceView::MakeView(TControl& Control)
{
    switch (Control.Kind())
    {
    case TQXControlKind::Label:
        return std::make_unique<TLabelView>(static_cast<TLabel&>(Control));
    case TQXControlKind::Edit:
        return std::make_unique<TEditView>(static_cast<TEdit&>(Control), FUser, FShorten);
    case TQXControlKind::Memo:
        return std::make_unique<TMemoView>(static_cast<TMemo&>(Control), FUser);
    case TQXControlKind::CheckBox:
        return std::make_unique<TCheckBoxView>(static_cast<TCheckBox&>(Control), FUser);
    case TQXControlKind::RadioButton:
        return std::make_unique<TRadioButtonView>(static_cast<TRadioButton&>(Control), FUser);
    case TQXControlKind::ComboBox:
        return std::make_unique<TComboBoxView>(static_cast<TComboBox&>(Control), FUser);
    case TQXControlKind::ListBox:
        return std::make_unique<TListBoxView>(static_cast<TListBox&>(Control), FUser);
    case TQXControlKind::CheckList:
        return std::make_unique<TCheckListView>(static_cast<TCheckList&>(Control), FUser);
    case TQXControlKind::Grid:
        return std::make_unique<TGridView>(static_cast<TGrid&>(Control), FUser);
    case TQXControlKind::ListView:
        return std::make_unique<TListViewView>(static_cast<TListView&>(Control), FUser);
    case TQXControlKind::Button:
        return std::make_unique<TButtonView>(static_cast<TButton&>(Control), FUser);
    case TQXControlKind::Panel:
        return std::make_unique<TPanelView>(static_cast<TPanel&>(Control));
    }
    throw std::logic_error("a control without a kind");
}

void TSurfaceView::Place(TControlView& View, const TControl* Before, QGridLayout& Layout)
{
    const TControl& Control = View.Control();
    if (HasLabel(Control))
        return PlaceField(View, Before, Layout);
    // Buttons that follow each other stand beside each other.
    if (Control.Kind() == TQXControlKind::Button)
    {
        QLayout* Row = nullptr;
        if (Before && Before->Kind() == TQXControlKind::Button)
            Row = Layout.itemAtPosition(Layout.rowCount() - 1, 0)->layout();
        else
        {
            auto* Buttons = new QHBoxLayout;
            Layout.addLayout(Buttons, Layout.rowCount(), 0, 1, 2, Qt::AlignLeft);
            Row = Buttons;
        }
        return Row->addWidget(&View.Widget());
    }
    Layout.addWidget(&View.Widget(), Layout.rowCount(), 0, 1, 2);
}

/// A field has its label before it, or above it where either needs the room. One without a caption belongs to the box
/// or button before it.
void TSurfaceView::PlaceField(TControlView& View, const TControl* Before, QGridLayout& Layout)
{
    const TControl& Control = View.Control();
    const int Row = Layout.rowCount();
    if (Control.Caption.empty())
    {
        const bool GoesWithIt = Belongs(Control, Before);
        std::string_view Name = Control.Hint.empty() ? Control.Name() : std::string_view(Control.Hint);
        if (GoesWithIt)
            Name = Before->Caption;
        View.Field().setAccessibleName(ToQt(Name));
        auto* Line = new QHBoxLayout;
        Line->addSpacing(GoesWithIt && IsButtonLike(*Before) ? Indent : 0);
        Line->addWidget(&View.Widget());
        Layout.addLayout(Line, Row, 0, 1, 2);
        Layout.setRowStretch(Row, IsTall(Control) ? 1 : 0);
        return;
    }
    auto* Label = new QLabel(ToQt(Control.Caption));
    Label->setBuddy(&View.Field());
    Label->setWordWrap(Control.Caption.size() > LongLabel);
    View.Field().setAccessibleName(Label->text().remove(QLatin1Char('&')));
    FLabels.emplace_back(Label, &View);
    const bool IsAbove = IsTall(Control) || Control.Caption.size() > LongLabel;
    Layout.addWidget(Label, Row, 0, 1, IsAbove ? 2 : 1);
    const bool IsNarrow = Control.Kind() == TQXControlKind::ComboBox && !IsAbove;
    Layout.addWidget(&View.Widget(), IsAbove ? Row + 1 : Row, IsAbove ? 0 : 1, 1, IsAbove ? 2 : 1,
                     IsNarrow ? Qt::AlignLeft : Qt::Alignment());
    if (IsTall(Control))
        Layout.setRowStretch(Row + 1, 1);
}

void TSurfaceView::Sync()
{
    for (const auto& View : FViews)
        View->Sync();
    for (const auto& [Label, View] : FLabels)
    {
        Label->setVisible(View->Control().Visible);
        Label->setEnabled(View->Control().Enabled);
    }
}

bool TSurfaceView::eventFilter(QObject* Watched, QEvent* Event)
{
    if (Event->type() == QEvent::ToolTip && CompleteHint)
        for (const auto& View : FViews)
            if (&View->Field() == Watched && !View->Control().Hint.empty())
                View->Field().setToolTip(ToQt(CompleteHint(View->Control().Hint)));
    return QWidget::eventFilter(Watched, Event);
}

const TControlView* TSurfaceView::Focused() const
{
    const QWidget* Focus = QApplication::focusWidget();
    for (const auto& View : FViews)
        if (Focus && View->Control().Kind() != TQXControlKind::Panel &&
            (&View->Widget() == Focus || View->Widget().isAncestorOf(Focus)))
            return View.get();
    return nullptr;
}

TControlView* TSurfaceView::Find(std::string_view Name) const
{
    for (const auto& View : FViews)
        if (View->Control().Name() == Name)
            return View.get();
    return nullptr;
}
