#include "apps/designer/pages/PageTabs.h"

#include "apps/designer/QtText.h"

#include <QScrollArea>
#include <QTabBar>

namespace
{
/// A name without what people leave out: case, blanks and marks.
QString Normal(const QString& Name)
{
    QString Result;
    for (const QChar Letter : Name)
        if (Letter.isLetterOrNumber())
            Result += Letter.toLower();
    return Result;
}

bool IsSame(std::string_view Name, const QString& Label)
{
    return !Name.empty() && Normal(ToQt(Name)) == Normal(Label);
}
/// The first one on a page to which the Tab key goes, or null.
QWidget* FirstField(TSurfaceView& View)
{
    for (QWidget* Widget = View.nextInFocusChain(); View.isAncestorOf(Widget); Widget = Widget->nextInFocusChain())
        if ((Widget->focusPolicy() & Qt::TabFocus) != 0 && !Widget->focusProxy())
            return Widget;
    return nullptr;
}
} // namespace

TPageTabs::TPageTabs(QTabWidget& Tabs, TCustomQXAction& Action, std::span<const TQXPageClass> Classes,
                     const TShorten& Shorten, bool IsReadOnly)
    : FTabs(Tabs), FObject(Action), FSet(std::make_unique<TPageSet>(Action, Classes)), FUser([this] { AfterAct(); })
{
    Fill(Shorten, IsReadOnly);
}

TPageTabs::TPageTabs(QTabWidget& Tabs, TQXOptionsObject& Options, std::span<const TQXPageClass> Classes)
    : FTabs(Tabs), FObject(Options), FSet(std::make_unique<TPageSet>(Options, Classes)), FUser([this] { AfterAct(); })
{
    Fill({}, false);
}

TPageTabs::~TPageTabs()
{
    for (int Page = 0; Page < Count(); ++Page)
    {
        QWidget* Tab = FTabs.widget(0);
        FTabs.removeTab(0);
        Tab->hide();
        Tab->deleteLater();
    }
}

void TPageTabs::Fill(const TShorten& Shorten, bool IsReadOnly)
{
    FSet->Read();
    for (std::size_t Page = 0; Page < FSet->Count(); ++Page)
    {
        auto* View = new TSurfaceView(FSet->Page(Page), FUser, Shorten);
        View->setEnabled(!IsReadOnly);
        View->CompleteHint = [this, Page](std::string Hint) { return FSet->ShownHint(Page, std::move(Hint)); };
        View->Sync();
        FViews.push_back(View);
        auto* Area = new QScrollArea;
        Area->setWidget(View);
        Area->setWidgetResizable(true);
        Area->setFrameShape(QFrame::NoFrame);
        Area->setFocusPolicy(Qt::TabFocus);
        const std::string Name = FSet->PageName(Page);
        FTabs.insertTab(static_cast<int>(Page), Area, Name.empty() ? tr("General") : ToQt(Name));
    }
    OrderFocus();
}

/// The keyboard goes from the tabs to what stands on the pages, though that was made after all else.
void TPageTabs::OrderFocus()
{
    QWidget* Before = FTabs.tabBar();
    for (int Page = 0; Page < Count(); ++Page)
        if (QWidget* First = FirstField(View(Page)))
        {
            QWidget* Area = FTabs.widget(Page);
            Area->setFocusProxy(First); // which makes one whole of it
            QWidget::setTabOrder(Before, Area);
            Before = Area;
        }
}

void TPageTabs::AfterAct()
{
    FSet->ApplyRules();
    for (TSurfaceView* View : FViews)
        View->Sync();
    FSet->Write();
    emit Changed(FocusedControl());
}

void TPageTabs::Read()
{
    FSet->Read();
    for (TSurfaceView* View : FViews)
        View->Sync();
}

void TPageTabs::Activate(int Page)
{
    if (Page < 0 || Page >= Count())
        return;
    FSet->Activate(static_cast<std::size_t>(Page));
    View(Page).Sync();
}

QString TPageTabs::FocusedControl() const
{
    for (const TSurfaceView* View : FViews)
        if (const TControlView* Focused = View->Focused())
            return ToQt(Focused->Control().Name());
    return {};
}

void TPageTabs::Focus(const QString& Control)
{
    for (int Page = 0; Page < Count(); ++Page)
        if (TControlView* Found = View(Page).Find(FromQt(Control)))
        {
            FTabs.setCurrentIndex(Page);
            Found->Field().setFocus(Qt::OtherFocusReason);
            return;
        }
}

bool TPageTabs::IsKnownAs(const TPage& Page, const TControl& Control, const QString& Label) const
{
    if (Control.Kind() != TQXControlKind::Label && IsSame(Control.Caption, Label))
        return true;
    for (const TQXBinding& Binding : Page.Bindings())
    {
        const void* Member = Binding.Control == &Control ? Binding.Member(FObject) : nullptr;
        const TQXProperty* Property = Member ? FObject.FindMember(Member) : nullptr;
        if (Property && (IsSame(Property->Name, Label) || IsSame(Property->AliasText, Label)))
            return true;
    }
    return false;
}

bool TPageTabs::Find(const QString& Label)
{
    for (int Page = 0; Page < Count(); ++Page)
    {
        const TPage& Shown = FSet->Page(static_cast<std::size_t>(Page));
        for (const TControl* Control : QXAllControls(Shown))
            if (IsKnownAs(Shown, *Control, Label))
            {
                Focus(ToQt(Control->Name()));
                return true;
            }
    }
    return false;
}
