#include "apps/designer/options/OptionsDialog.h"

#include "apps/designer/Images.h"
#include "apps/designer/QtText.h"
#include "apps/designer/RoomyRows.h"
#include "apps/designer/dialogs/OkAndCancel.h"
#include "host/QXServices.h"
#include "platform/Files.h"
#include "platform/FolderLock.h"
#include "runtime/HostErrors.h"

#include <QHBoxLayout>
#include <QMessageBox>
#include <QVBoxLayout>

#include <algorithm>

TOptionsDialog::TOptionsDialog(QWidget* Parent, TQXRuntime& Runtime)
    : QDialog(Parent), FRuntime(Runtime), FNames(new QListWidget), FStack(new QStackedWidget)
{
    setWindowTitle(tr("Options"));
    FNames->setAccessibleName(tr("Options objects"));
    constexpr int NamesWidth = 210;
    FNames->setFixedWidth(NamesWidth);
    FNames->setItemDelegate(new TRoomyRows(this));
    for (const TQXOptionsRegistration& Registration : Runtime.OptionsServices().Options())
        Add(Registration);
    AddHost();
    connect(FNames, &QListWidget::currentRowChanged, FStack, &QStackedWidget::setCurrentIndex);
    FNames->setCurrentRow(0);
    auto* Middle = new QHBoxLayout;
    Middle->addWidget(FNames);
    Middle->addWidget(FStack, 1);
    auto* Layout = new QVBoxLayout(this);
    Layout->addLayout(Middle, 1);
    Layout->addWidget(OkAndCancel(*this));
    constexpr QSize Size(820, 480);
    resize(Size);
}

TOptionsDialog::~TOptionsDialog() = default;

std::vector<TQXPropertyValue> TOptionsDialog::ValuesOf(const TQXOptionsObject& Object)
{
    std::vector<TQXPropertyValue> Values;
    for (const TQXProperty& Property : Object.Properties())
        Values.push_back(Property.Read());
    return Values;
}

void TOptionsDialog::Add(const TQXOptionsRegistration& Registration)
{
    const TQXOptionsClass& Class = Registration.OptionsClass;
    TQXOptionsObject* Object = FRuntime.OptionsServices().GetOptions(Class.Category, Class.Name);
    FNames->addItem(new QListWidgetItem(Images::Find(Registration.ImageName), ToQt(Class.Name)));
    FNames->item(FNames->count() - 1)->setToolTip(ToQt(Class.Category));
    auto* Tabs = new QTabWidget;
    Tabs->setDocumentMode(true);
    auto* Grid = new TPropertyGrid;
    Grid->Show(Object, Class.Create(), Class.ClassName, {}, false);
    auto Pages = std::make_unique<TPageTabs>(*Tabs, *Object, FRuntime.OptionsServices().OptionsPages(Class.ClassName));
    Tabs->addTab(Grid, tr("Properties"));
    Tabs->setCurrentIndex(0);
    Pages->Activate(0);
    connect(Pages.get(), &TPageTabs::Changed, Grid, &TPropertyGrid::Refresh);
    connect(Grid, &TPropertyGrid::Changed, Pages.get(), &TPageTabs::Read);
    FStack->addWidget(Tabs);
    FEntries.push_back({&Registration, Object, ValuesOf(*Object), std::move(Pages)});
}

void TOptionsDialog::AddHost()
{
    FHost = new THostPage(FRuntime.Options());
    FNames->addItem(new QListWidgetItem(Images::Find("quexley-designer"), tr("Quexley")));
    auto* Tabs = new QTabWidget;
    Tabs->setDocumentMode(true);
    Tabs->addTab(FHost, tr("General"));
    FStack->addWidget(Tabs);
}

/// Into the file as it is now: another program may have stored options meanwhile.
void TOptionsDialog::Store()
{
    const std::string File = FRuntime.Options().FileName();
    const TFolderLock Lock(File);
    FRuntime.Options() = TOptionsFile::Load(File, false);
    for (const TEntry& Entry : FEntries)
        if (ValuesOf(*Entry.Object) != Entry.Before)
            FRuntime.StoreOptions(*Entry.Registration);
    FHost->Store(FRuntime.Options());
    FRuntime.Options().Save();
}

void TOptionsDialog::accept()
try
{
    const auto IsChanged = [](const TEntry& Entry) { return ValuesOf(*Entry.Object) != Entry.Before; };
    if (FHost->IsChanged() || std::any_of(FEntries.begin(), FEntries.end(), IsChanged))
        Store();
    QDialog::accept();
}
catch (const EHostFileError& Error)
{
    QMessageBox::critical(this, windowTitle(), ToQt(Error.what()));
}
catch (const EFileError& Error)
{
    QMessageBox::critical(this, windowTitle(), ToQt(Error.what()));
}

void TOptionsDialog::reject()
{
    for (const TEntry& Entry : FEntries)
    {
        const bool WasModified = Entry.Object->IsModified();
        const std::vector<TQXProperty>& Properties = Entry.Object->Properties();
        for (std::size_t Row = 0; Row < Properties.size(); ++Row)
            if (Properties[Row].IsPersisted() && Properties[Row].Read() != Entry.Before[Row])
                Properties[Row].Write(Entry.Before[Row]);
        Entry.Object->SetModified(WasModified);
    }
    QDialog::reject();
}
