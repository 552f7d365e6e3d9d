#include "apps/designer/editors/ActionPane.h"

#include "apps/designer/QtText.h"
#include "apps/designer/document/DesignTime.h"
#include "apps/designer/scripts/Scripts.h"
#include "host/QXServices.h"
#include "platform/Paths.h"

#include <QApplication>

#include <stdexcept>
#include <utility>

TActionPane::TActionPane(TProjectDocument& Document, TQtDesignServices& Services)
    : FDocument(Document), FServices(Services), FRunPage(new TRunPage(Document)), FScripts(new TScriptPane),
      FGrid(new TPropertyGrid)
{
    FScripts->Check = Scripts::Check;
    setDocumentMode(true);
    addTab(FRunPage, tr("Run"));
    addTab(FScripts, tr("Scripts"));
    addTab(FGrid, tr("Properties"));
    FGrid->SetPaths({[this](const std::string& Text) { return Located(Text); },
                     [this](const std::string& Path) { return Shortened(Path); }});
    connect(FGrid, &TPropertyGrid::Changed, this, &TActionPane::TakeGrid);
    connect(FScripts, &TScriptPane::Edited, this, &TActionPane::TakeScript);
    connect(this, &QTabWidget::currentChanged, this, &TActionPane::LeaveFor);
}

TActionPane::~TActionPane() = default;

/// Where a text of an action leads in a run, as far as its variables are known.
std::string TActionPane::Located(const std::string& Text) const
try
{
    const std::string Path = ExpandAtDesignTime(FDocument.Project(), Text);
    return Path.empty() ? Path : Paths::Expand(Path, FDocument.Project().Folder);
}
catch (const std::runtime_error&)
{
    return Text;
}

/// A path below the project's folder holds wherever the project lies, whatever folder a tool starts in.
std::string TActionPane::Shortened(const std::string& Path) const
{
    const std::string Folder = Paths::WithTrailing(FDocument.Project().Folder);
    if (!FDocument.HasFile() || !Path.starts_with(Folder))
        return Path;
    return "%ProjectDir%" + Path.substr(Folder.size() - 1);
}

void TActionPane::Show(int Place)
{
    const TProjectAction& Action = FDocument.Action(Place);
    const bool IsSameClass = FPlace >= 0 && Action.Type == FType;
    const QString Tab = IsSameClass ? tabText(currentIndex()) : QString();
    const QString Control = IsSameClass && FPages ? FPages->FocusedControl() : QString();
    const bool HadFocus = isAncestorOf(QApplication::focusWidget());
    const bool IsReadOnly = FDocument.Project().IsIncluded(Action);
    Forget();
    FPlace = Place;
    FType = Action.Type;
    setUpdatesEnabled(false);
    FIsShowing = true;
    FPages = std::make_unique<TPageTabs>(
        *this, *Action.Object, QXActionServices().ActionPages(Action.Type),
        [this](const std::string& Path) { return Shortened(Path); }, IsReadOnly);
    connect(FPages.get(), &TPageTabs::Changed, this, &TActionPane::TakePages);
    FRunPage->Show(Place);
    FScripts->Show(Scripts::OfAction(*Action.Object));
    FScripts->SetReadOnly(IsReadOnly);
    setTabVisible(indexOf(FScripts), !Action.Object->Scripts().empty());
    ShowGrid(Action, IsReadOnly);
    FIsShowing = false;
    ShowTab(Tab);
    if (HadFocus && !Control.isEmpty())
        FPages->Focus(Control);
    setUpdatesEnabled(true);
}

void TActionPane::ShowTab(const QString& Name)
{
    int Wanted = 0;
    for (int Tab = 0; Tab < count(); ++Tab)
        if (tabText(Tab) == Name && isTabVisible(Tab))
            Wanted = Tab;
    setCurrentIndex(Wanted);
    FPages->Activate(Wanted);
    FPage = Wanted;
}

void TActionPane::ShowGrid(const TProjectAction& Action, bool IsReadOnly)
{
    TStringList Hidden;
    Action.Object->GetHiddenProperties(Hidden);
    FGrid->Show(Action.Object.get(), QXActionServices().FindAction(Action.Type)->ActionClass.Create(), Action.Type,
                Hidden, IsReadOnly);
}

void TActionPane::Forget()
{
    FIsShowing = true;
    FPages.reset();
    FGrid->Show(nullptr, nullptr, {}, {}, true);
    FPlace = -1;
    FIsShowing = false;
    FIsChanged = false;
}

void TActionPane::TakePages(const QString& Control)
{
    FIsChanged = true;
    FGrid->Refresh();
    FDocument.Touch(FPlace, tr("Edit %1").arg(ToQt(FDocument.Action(FPlace).Name)), Control);
}

void TActionPane::TakeGrid(const QString& Property)
{
    FPages->Read();
    FDocument.Touch(FPlace, tr("Change %1").arg(Property), Property);
}

void TActionPane::TakeScript(const QString& Name, const QString& Text)
{
    FDocument.Action(FPlace).Object->GetScriptByName(FromQt(Name))->SetText(FromQt(Text));
    FDocument.Touch(FPlace, tr("Edit Script"), Name);
}

/// Who leaves a page that they have changed hears what it has against its content.
void TActionPane::LeaveFor(int Tab)
{
    if (FIsShowing || !FPages)
        return;
    CheckPage();
    FPage = Tab;
    FPages->Activate(Tab);
}

void TActionPane::CheckPage()
{
    if (!std::exchange(FIsChanged, false) || FPage < 0 || FPage >= FPages->Count())
        return;
    for (const QString& Reason : ReasonsOf(FPage))
        emit Refused(Reason);
}

QStringList TActionPane::ReasonsOf(int Page)
{
    QStringList Reasons;
    FServices.OnError = [&](const std::string& Text) { Reasons.append(ToQt(Text)); };
    (void)FPages->Set().Validate(static_cast<std::size_t>(Page));
    FServices.OnError = nullptr;
    return Reasons;
}

QStringList TActionPane::Reasons()
{
    QStringList All;
    for (int Page = 0; FPages && Page < FPages->Count(); ++Page)
        All += ReasonsOf(Page);
    return All;
}

void TActionPane::Find(const QString& Label)
{
    if (FPlace < 0 || FPages->Find(Label) || FindInTabs(Label))
        return;
    setFocus(Qt::OtherFocusReason);
}

bool TActionPane::FindInTabs(const QString& Label)
{
    if (FRunPage->Select(Label))
        setCurrentWidget(FRunPage);
    else if (FScripts->Select(Label))
        setCurrentWidget(FScripts);
    else if (FGrid->Select(FromQt(QString(Label).remove(QLatin1Char(' ')))))
        setCurrentWidget(FGrid);
    else
        return false;
    return true;
}
