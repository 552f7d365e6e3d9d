#include "apps/designer/pages/SurfaceView.h"

#include "apps/designer/QtText.h"
#include "apps/designer/pages/ChoiceViews.h"
#include "apps/designer/pages/GridView.h"
#include "apps/designer/pages/ListViews.h"
#include "apps/designer/pages/PageLayout.h"
#include "apps/designer/pages/PanelView.h"

#include <QApplication>
#include <QLabel>

#include <stdexcept>

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
    TPageLayout Layout(Container, Holder);
    for (TControl* Control : Container.Controls())
    {
        FViews.push_back(MakeView(*Control));
        TControlView& View = *FViews.back();
        View.Widget().setObjectName(ToQt(Control->Name()));
        View.Field().installEventFilter(this);
        if (QLabel* Label = Layout.Add(View))
            FLabels.emplace_back(Label, &View);
        if (Control->Kind() == TQXControlKind::Panel)
            Fill(static_cast<const TPanel&>(*Control), View.Widget());
    }
    Layout.Finish();
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
