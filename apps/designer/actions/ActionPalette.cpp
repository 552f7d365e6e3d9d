#include "apps/designer/actions/ActionPalette.h"

#include "apps/designer/Images.h"
#include "apps/designer/QtText.h"
#include "apps/designer/RoomyRows.h"
#include "host/QXServices.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>
#include <QVBoxLayout>

#include <algorithm>

namespace
{
constexpr int ClassRole = Qt::UserRole;
constexpr int WordsRole = Qt::UserRole + 1; // in what is searched

QString ClassOf(const QTreeWidgetItem* Item)
{
    return Item ? Item->data(0, ClassRole).toString() : QString();
}

bool HoldsAll(const QString& Text, const QStringList& Words)
{
    return std::all_of(Words.begin(), Words.end(),
                       [&](const QString& Word) { return Text.contains(Word, Qt::CaseInsensitive); });
}
} // namespace

TPaletteTree::TPaletteTree(QWidget* Parent) : QTreeWidget(Parent)
{
    setHeaderHidden(true);
    setDragEnabled(true);
    setDragDropMode(QAbstractItemView::DragOnly);
    setItemDelegate(new TRoomyRows(this));
    setUniformRowHeights(true);
    constexpr int Indent = 12; // so that names have room
    setIndentation(Indent);
    setAccessibleName(tr("Actions by category"));
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* Item) {
        if (!ClassOf(Item).isEmpty())
            emit Chosen(ClassOf(Item));
    });
}

QStringList TPaletteTree::mimeTypes() const
{
    return {QString::fromLatin1(ClassMimeType)};
}

QMimeData* TPaletteTree::mimeData(const QList<QTreeWidgetItem*>& Items) const
{
    if (Items.isEmpty() || ClassOf(Items.front()).isEmpty())
        return nullptr;
    auto Data = std::make_unique<QMimeData>();
    Data->setData(QString::fromLatin1(ClassMimeType), ClassOf(Items.front()).toUtf8());
    return Data.release();
}

void TPaletteTree::keyPressEvent(QKeyEvent* Event)
{
    const bool IsEnter = Event->key() == Qt::Key_Return || Event->key() == Qt::Key_Enter;
    if (IsEnter && !ClassOf(currentItem()).isEmpty())
        emit Chosen(ClassOf(currentItem()));
    else
        QTreeWidget::keyPressEvent(Event);
}

TActionPalette::TActionPalette() : FSearch(new QLineEdit(this)), FTree(new TPaletteTree(this))
{
    FSearch->setPlaceholderText(tr("Search actions"));
    FSearch->setClearButtonEnabled(true);
    FSearch->setAccessibleName(tr("Search actions"));
    FSearch->setToolTip(tr("Enter adds the first action that is found, Down goes to the list"));
    FSearch->installEventFilter(this);
    auto* Layout = new QVBoxLayout(this);
    Layout->setContentsMargins({});
    Layout->addWidget(FSearch);
    Layout->addWidget(FTree);
    connect(FSearch, &QLineEdit::textChanged, this, &TActionPalette::Narrow);
    connect(FSearch, &QLineEdit::returnPressed, this, [this] {
        if (const QTreeWidgetItem* Item = FirstShown())
            emit Chosen(ClassOf(Item));
    });
    connect(FTree, &TPaletteTree::Chosen, this, &TActionPalette::Chosen);
    connect(FTree, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* Item) { emit Pointed(ClassOf(Item)); });
}

void TActionPalette::Fill()
{
    FTree->clear();
    for (const TQXActionRegistration& Registration : QXActionServices().Actions())
    {
        auto* Item = new QTreeWidgetItem(Category(ToQt(Registration.Category)));
        const QString ClassName = ToQt(Registration.ActionClass.ClassName);
        Item->setText(0, ToQt(Registration.DisplayName));
        Item->setToolTip(0, tr("%1\n%2\nDouble click or drag to add").arg(Item->text(0), ClassName));
        Item->setIcon(0, Images::Find(Registration.ImageName));
        Item->setData(0, ClassRole, ClassName);
        Item->setData(0, WordsRole, QStringLiteral("%1 %2 %3").arg(Item->text(0), Item->parent()->text(0), ClassName));
    }
    FTree->expandAll();
}

QTreeWidgetItem* TActionPalette::Category(const QString& Name)
{
    for (int Index = 0; Index < FTree->topLevelItemCount(); ++Index)
        if (FTree->topLevelItem(Index)->text(0) == Name)
            return FTree->topLevelItem(Index);
    auto* Item = new QTreeWidgetItem(FTree, {Name});
    Item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    QFont Font = Item->font(0);
    Font.setBold(true);
    Item->setFont(0, Font);
    return Item;
}

void TActionPalette::Narrow(const QString& Words)
{
    const QStringList Wanted = Words.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (int Index = 0; Index < FTree->topLevelItemCount(); ++Index)
    {
        QTreeWidgetItem* Group = FTree->topLevelItem(Index);
        bool IsShown = false;
        for (int Row = 0; Row < Group->childCount(); ++Row)
        {
            const bool Fits = HoldsAll(Group->child(Row)->data(0, WordsRole).toString(), Wanted);
            Group->child(Row)->setHidden(!Fits);
            IsShown |= Fits;
        }
        Group->setHidden(!IsShown);
        Group->setExpanded(true);
    }
    if (!Wanted.isEmpty())
        FTree->setCurrentItem(FirstShown());
}

QTreeWidgetItem* TActionPalette::FirstShown() const
{
    for (QTreeWidgetItemIterator Item(FTree, QTreeWidgetItemIterator::NotHidden); *Item; ++Item)
        if (!ClassOf(*Item).isEmpty())
            return *Item;
    return nullptr;
}

void TActionPalette::BeginSearch()
{
    FSearch->setFocus(Qt::ShortcutFocusReason);
    FSearch->selectAll();
}

bool TActionPalette::eventFilter(QObject* Watched, QEvent* Event)
{
    const int Key = Event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(Event)->key() : 0;
    if (Key == Qt::Key_Escape)
        FSearch->clear();
    if (Key != Qt::Key_Down)
        return QWidget::eventFilter(Watched, Event);
    if (!FTree->currentItem() || ClassOf(FTree->currentItem()).isEmpty())
        FTree->setCurrentItem(FirstShown());
    FTree->setFocus(Qt::OtherFocusReason);
    return true;
}
