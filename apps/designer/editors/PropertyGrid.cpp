#include "apps/designer/editors/PropertyGrid.h"

#include "apps/designer/QtText.h"

#include <QAction>
#include <QHeaderView>
#include <QVBoxLayout>

#include <algorithm>

TPropertyGrid::TPropertyGrid() : FView(new QTreeView), FDelegate(new TPropertyDelegate(this)), FMeaning(new QLabel)
{
    FView->setModel(&FModel);
    FView->setItemDelegate(new TRoomyRows(this));
    FView->setItemDelegateForColumn(TPropertyModel::ValueColumn, FDelegate);
    FView->setRootIsDecorated(false);
    FView->setUniformRowHeights(true);
    FView->setAllColumnsShowFocus(true);
    FView->setAlternatingRowColors(true);
    FView->setAccessibleName(tr("All properties"));
    FView->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed |
                           QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked);
    constexpr int NameWidth = 210;
    FView->header()->resizeSection(TPropertyModel::NameColumn, NameWidth);
    FMeaning->setWordWrap(true);
    FMeaning->setMinimumHeight(2 * fontMetrics().lineSpacing());
    FMeaning->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto* Reset = new QAction(tr("&Reset to Default"), FView);
    Reset->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Backspace));
    Reset->setShortcutContext(Qt::WidgetShortcut);
    FView->addAction(Reset);
    FView->setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* Layout = new QVBoxLayout(this);
    Layout->addWidget(FView);
    Layout->addWidget(FMeaning);
    connect(Reset, &QAction::triggered, this, &TPropertyGrid::ResetCurrent);
    connect(&FModel, &TPropertyModel::Changed, this, &TPropertyGrid::Changed);
    connect(FView->selectionModel(), &QItemSelectionModel::currentChanged, this, &TPropertyGrid::Explain);
}

void TPropertyGrid::Show(TQXPersistent* Object, std::unique_ptr<TQXPersistent> Defaults, const std::string& ClassName,
                         const TStringList& Hidden, bool IsReadOnly)
{
    const int Row = FView->currentIndex().row();
    FDelegate->ClassName = ClassName;
    FModel.Show(Object, Defaults.get(), Hidden, IsReadOnly);
    FDefaults = std::move(Defaults);
    FView->setCurrentIndex(FModel.index(std::max(Row, 0), TPropertyModel::ValueColumn));
}

bool TPropertyGrid::Select(std::string_view Name)
{
    const int Row = FModel.RowOf(Name);
    if (Row < 0)
        return false;
    FView->setCurrentIndex(FModel.index(Row, TPropertyModel::ValueColumn));
    FView->setFocus(Qt::OtherFocusReason);
    return true;
}

void TPropertyGrid::Explain(const QModelIndex& Current)
{
    FMeaning->setText(Current.isValid() ? Current.data(Qt::ToolTipRole).toString() : QString());
}

void TPropertyGrid::ResetCurrent()
{
    if (FView->currentIndex().isValid())
        FModel.Reset(FView->currentIndex().row());
}
