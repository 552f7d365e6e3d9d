#include "apps/designer/editors/ListEditor.h"

#include <QHBoxLayout>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>

TListEditor::TListEditor(const QString& Name) : FList(new QListWidget)
{
    FList->setAccessibleName(Name);
    FList->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::DoubleClicked);
    setFocusProxy(FList);
    auto* Buttons = new QVBoxLayout;
    auto* Layout = new QHBoxLayout(this);
    Layout->setContentsMargins({});
    Layout->addWidget(FList);
    Layout->addLayout(Buttons);
    const auto AddButton = [&](const QString& Caption, const QKeySequence& Key, const std::function<void()>& Do) {
        auto* Button = new QPushButton(Caption);
        Button->setToolTip(Key.toString(QKeySequence::NativeText));
        connect(Button, &QPushButton::clicked, this, Do);
        auto* Shortcut = new QShortcut(Key, FList);
        Shortcut->setContext(Qt::WidgetShortcut);
        connect(Shortcut, &QShortcut::activated, this, Do);
        Buttons->addWidget(Button);
    };
    AddButton(tr("A&dd"), QKeySequence(Qt::Key_Insert), [this] { Add(); });
    AddButton(tr("Re&move"), QKeySequence(Qt::Key_Delete), [this] { Remove(); });
    AddButton(tr("&Up"), QKeySequence(Qt::ALT | Qt::Key_Up), [this] { MoveBy(-1); });
    AddButton(tr("Do&wn"), QKeySequence(Qt::ALT | Qt::Key_Down), [this] { MoveBy(1); });
    Buttons->addStretch();
    connect(FList, &QListWidget::itemChanged, this, &TListEditor::Changed);
}

void TListEditor::Show(const QStringList& Items)
{
    if (Items == this->Items())
        return; // who edits one goes on
    const QSignalBlocker Blocker(FList);
    const int Row = FList->currentRow();
    FList->clear();
    for (const QString& Item : Items)
    {
        auto* Shown = new QListWidgetItem(Item, FList);
        Shown->setFlags(Shown->flags() | Qt::ItemIsEditable);
    }
    FList->setCurrentRow(std::min(std::max(Row, 0), FList->count() - 1));
}

QStringList TListEditor::Items() const
{
    QStringList Result;
    for (int Row = 0; Row < FList->count(); ++Row)
        Result.append(FList->item(Row)->text());
    return Result;
}

void TListEditor::Add()
{
    const QString Text = AskForNew ? AskForNew() : QString();
    if (Text.isEmpty())
        return;
    Show(Items() << Text);
    FList->setCurrentRow(FList->count() - 1);
    emit Changed();
}

void TListEditor::Remove()
{
    if (!FList->currentItem())
        return;
    delete FList->takeItem(FList->currentRow());
    emit Changed();
}

void TListEditor::MoveBy(int Rows)
{
    const int Row = FList->currentRow();
    QStringList All = Items();
    if (Row < 0 || Row + Rows < 0 || Row + Rows >= All.size())
        return;
    All.swapItemsAt(Row, Row + Rows);
    Show(All);
    FList->setCurrentRow(Row + Rows);
    emit Changed();
}
