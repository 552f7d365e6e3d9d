#include "apps/designer/scripts/ScriptPane.h"

#include "apps/designer/QtText.h"
#include "apps/designer/Theme.h"

#include <QScopedValueRollback>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

TScriptPane::TScriptPane()
    : FNames(new QListWidget), FEditor(new TScriptEditor), FParameters(new QLabel), FReason(new QLabel)
{
    auto* Names = new QLabel(tr("S&cripts"));
    Names->setBuddy(FNames);
    FNames->setAccessibleName(tr("Scripts"));
    FEditor->setAccessibleName(tr("Text of the script"));
    FParameters->setWordWrap(true);
    FReason->setWordWrap(true);
    auto* Left = new QWidget;
    auto* LeftLayout = new QVBoxLayout(Left);
    LeftLayout->setContentsMargins({});
    LeftLayout->addWidget(Names);
    LeftLayout->addWidget(FNames);
    auto* Right = new QWidget;
    auto* RightLayout = new QVBoxLayout(Right);
    RightLayout->setContentsMargins({});
    RightLayout->addWidget(FParameters);
    RightLayout->addWidget(FEditor);
    RightLayout->addWidget(FReason);
    auto* Splitter = new QSplitter;
    Splitter->addWidget(Left);
    Splitter->addWidget(Right);
    Splitter->setStretchFactor(1, 1);
    constexpr int NamesWidth = 190;
    Splitter->setSizes({NamesWidth, 3 * NamesWidth});
    auto* Layout = new QVBoxLayout(this);
    Layout->addWidget(Splitter);

    constexpr int Pause = 400; // milliseconds
    FPause.setSingleShot(true);
    FPause.setInterval(Pause);
    connect(&FPause, &QTimer::timeout, this, &TScriptPane::CheckCurrent);
    connect(FNames, &QListWidget::currentRowChanged, this, &TScriptPane::ShowCurrent);
    connect(FEditor, &QPlainTextEdit::textChanged, this, &TScriptPane::TakeEdit);
}

void TScriptPane::Show(std::vector<TShownScript> Scripts)
{
    const QScopedValueRollback Showing(FIsShowing, true);
    const QString Current = FNames->currentItem() ? FNames->currentItem()->text() : QString();
    FScripts = std::move(Scripts);
    {
        const QSignalBlocker Blocker(FNames);
        FNames->clear();
        for (const TShownScript& Script : FScripts)
        {
            FNames->addItem(ToQt(Script.Name));
            MarkUsed(FNames->count() - 1);
        }
        if (!Select(Current))
            FNames->setCurrentRow(0);
    }
    ShowCurrent();
}

/// Scripts that have a text stand out.
void TScriptPane::MarkUsed(int Row)
{
    QFont Font = FNames->font();
    Font.setBold(!FScripts[static_cast<std::size_t>(Row)].Text.empty());
    FNames->item(Row)->setFont(Font);
}

bool TScriptPane::Select(const QString& Name)
{
    const QList<QListWidgetItem*> Items = FNames->findItems(Name, Qt::MatchExactly);
    if (!Items.isEmpty())
        FNames->setCurrentItem(Items.front());
    return !Items.isEmpty();
}

void TScriptPane::ShowCurrent()
{
    const QScopedValueRollback Showing(FIsShowing, true);
    const int Row = FNames->currentRow();
    FEditor->setEnabled(Row >= 0);
    if (Row < 0)
        return FEditor->ShowText({});
    const TShownScript& Script = FScripts[static_cast<std::size_t>(Row)];
    QStringList Parameters;
    for (const std::string& Parameter : Script.Parameters)
        Parameters.append(ToQt(Parameter));
    FParameters->setText(Parameters.isEmpty() ? tr("A script without parameters")
                                              : tr("Parameters: %1").arg(Parameters.join(QStringLiteral(", "))));
    FEditor->ShowText(ToQt(Script.Text));
    CheckCurrent();
}

void TScriptPane::TakeEdit()
{
    const int Row = FNames->currentRow();
    if (FIsShowing || Row < 0)
        return;
    FScripts[static_cast<std::size_t>(Row)].Text = FromQt(FEditor->toPlainText());
    MarkUsed(Row);
    FPause.start();
    emit Edited(FNames->item(Row)->text(), FEditor->toPlainText());
}

void TScriptPane::CheckCurrent()
{
    const int Row = FNames->currentRow();
    if (!Check || Row < 0)
        return;
    const TShownScript& Script = FScripts[static_cast<std::size_t>(Row)];
    const auto [Line, Reason] = Script.Text.empty() ? std::pair(0, QString()) : Check(Script.Name, Script.Text);
    FEditor->MarkLine(Reason.isEmpty() ? 0 : std::max(Line, 1));
    FReason->setText(Reason.isEmpty() ? QString() : tr("Line %1: %2").arg(Line).arg(Reason));
    QPalette Palette = FReason->palette();
    Palette.setColor(QPalette::WindowText, Themes::Colour(Themes::TMeaning::Error, palette()));
    FReason->setPalette(Palette);
}
