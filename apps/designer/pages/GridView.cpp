#include "apps/designer/pages/GridView.h"

#include "apps/designer/QtText.h"
#include "apps/designer/pages/KeyNames.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

void TKeyTable::keyPressEvent(QKeyEvent* Event)
{
    const std::string Key = KeyName(*Event);
    const bool IsWithin = Key == "Down" && currentRow() + 1 < rowCount();
    if (Key.empty() || IsWithin || !OnKey || !OnKey(Key))
        QTableWidget::keyPressEvent(Event);
}

TGridView::TGridView(TGrid& Grid, TPageUser& User)
    : TControlView(Grid), FModel(Grid), FUser(User), FWidget(new QWidget), FTable(new TKeyTable)
{
    FTable->setColumnCount(static_cast<int>(Grid.Columns.size()));
    QStringList Headers;
    for (const std::string& Column : Grid.Columns)
        Headers.append(ToQt(Column));
    FTable->setHorizontalHeaderLabels(Headers);
    FTable->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    FTable->verticalHeader()->hide();
    FTable->setSelectionMode(QAbstractItemView::SingleSelection);
    FTable->setTabKeyNavigation(false);
    FTable->OnKey = [this](const std::string& Key) { return Press(Key); };
    FWidget->setFocusProxy(FTable);

    auto* Layout = new QVBoxLayout(FWidget);
    Layout->setContentsMargins({});
    Layout->addWidget(FTable);
    auto* Buttons = new QHBoxLayout;
    Layout->addLayout(Buttons);
    const auto AddButton = [&](const QString& Caption, const QString& Key, const std::function<void()>& Do) {
        auto* Button = new QPushButton(Caption);
        Button->setAutoDefault(false);
        Button->setToolTip(Key);
        QObject::connect(Button, &QPushButton::clicked, FTable, Do);
        Buttons->addWidget(Button);
    };
    AddButton(QObject::tr("Add Row"), QObject::tr("Insert"), [this] { Press("Insert"); });
    AddButton(QObject::tr("Remove Row"), QObject::tr("Ctrl+Del"), [this] { Press("Ctrl+Del"); });
    if (Grid.OnEllipsis)
    {
        AddButton(QObject::tr("Edit…"), QObject::tr("Ctrl+Enter"), [this] { Ellipsis(FTable->currentRow()); });
        auto* Key = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Return), FTable);
        Key->setContext(Qt::WidgetShortcut);
        QObject::connect(Key, &QShortcut::activated, FTable, [this] { Ellipsis(FTable->currentRow()); });
    }
    Buttons->addStretch();
    QObject::connect(FTable, &QTableWidget::cellChanged, FTable,
                     [this](int Row, int Column) { TakeCell(Row, Column); });
}

bool TGridView::Press(const std::string& Key)
try
{
    const int Row = FTable->currentRow();
    const auto New = FUser.Press(FModel, Key, Row < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(Row)));
    FTable->setCurrentCell(New ? static_cast<int>(*New) : std::min(Row, FTable->rowCount() - 1), 0);
    if (New)
        FTable->editItem(FTable->item(static_cast<int>(*New), 0));
    return true;
}
catch (const EPageUseError&)
{
    return false;
}

void TGridView::TakeCell(int Row, int Column)
{
    Act([&] {
        std::vector<TGrid::TRow> Rows = FModel.Rows;
        Rows.at(static_cast<std::size_t>(Row)).at(static_cast<std::size_t>(Column)) =
            FromQt(FTable->item(Row, Column)->text());
        FUser.Fill(FModel, std::move(Rows));
    });
}

void TGridView::Ellipsis(int Row)
{
    if (Row >= 0)
        Act([&] { FUser.Ellipsis(FModel, static_cast<std::size_t>(Row), FModel.EllipsisColumn); });
}

void TGridView::Show()
{
    FTable->setRowCount(static_cast<int>(FModel.Rows.size()));
    for (int Row = 0; Row < FTable->rowCount(); ++Row)
        for (int Column = 0; Column < FTable->columnCount(); ++Column)
        {
            const QString Text = ToQt(FModel.Rows[static_cast<std::size_t>(Row)][static_cast<std::size_t>(Column)]);
            if (!FTable->item(Row, Column))
                FTable->setItem(Row, Column, new QTableWidgetItem(Text));
            else if (FTable->item(Row, Column)->text() != Text)
                FTable->item(Row, Column)->setText(Text);
        }
}
