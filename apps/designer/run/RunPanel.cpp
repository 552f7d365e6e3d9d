#include "apps/designer/run/RunPanel.h"

#include <QHBoxLayout>
#include <QLocale>
#include <QShortcut>
#include <QVBoxLayout>

TRunPanel::TRunPanel()
    : FLog(new TLogView), FWhat(new QLabel(tr("No run yet"))), FTime(new QLabel), FGone(new QLabel),
      FProgress(new QProgressBar), FSearch(new QLineEdit)
{
    FSearch->setPlaceholderText(tr("Find in the log"));
    FSearch->setAccessibleName(tr("Find in the log"));
    FSearch->setClearButtonEnabled(true);
    constexpr int SearchWidth = 360;
    FSearch->setMaximumWidth(SearchWidth);
    FProgress->setAccessibleName(tr("Actions that are done"));
    FProgress->setVisible(false);
    FTime->setAccessibleName(tr("Elapsed time"));
    auto* Bar = new QHBoxLayout;
    constexpr int Margin = 4;
    Bar->setContentsMargins(Margin, 0, Margin, 0);
    Bar->addWidget(FWhat);
    Bar->addWidget(FProgress);
    Bar->addSpacing(12);
    Bar->addWidget(FTime);
    Bar->addStretch();
    Bar->addWidget(FGone);
    Bar->addWidget(FSearch);
    auto* Layout = new QVBoxLayout(this);
    Layout->setContentsMargins({});
    Layout->addLayout(Bar);
    Layout->addWidget(FLog);
    setTabOrder(FSearch, FLog);
    connect(FSearch, &QLineEdit::returnPressed, this, [this] { Search(1); });
    auto* Leave = new QShortcut(QKeySequence(Qt::Key_Escape), FSearch);
    Leave->setContext(Qt::WidgetShortcut);
    connect(Leave, &QShortcut::activated, FLog, [this] { FLog->setFocus(Qt::OtherFocusReason); });
    connect(new QShortcut(QKeySequence::FindNext, this), &QShortcut::activated, this, [this] { Search(1); });
    connect(new QShortcut(QKeySequence::FindPrevious, this), &QShortcut::activated, this, [this] { Search(-1); });
    constexpr int Interval = 200; // milliseconds
    FClock.setInterval(Interval);
    connect(&FClock, &QTimer::timeout, this, &TRunPanel::ShowTime);
}

void TRunPanel::Begin()
{
    FLog->Clear();
    FHasEnd = false;
    FGone->clear();
    FWhat->setText(tr("Starting"));
    FProgress->setValue(0);
    FProgress->setVisible(true);
    FElapsed.start();
    FClock.start();
    ShowTime();
}

void TRunPanel::Take(const TRunUpdate& Update)
{
    FLog->Add(Update.Lines, Update.Gone);
    if (Update.Actions)
        FProgress->setMaximum(*Update.Actions);
    for (const TLogLine& Line : Update.Lines)
        if (Line.Kind == TLogLine::TKind::Heading)
            FWhat->setText(tr("Running %1").arg(Line.Text));
    for (const auto& [Number, State] : Update.States)
        if (State.Kind != TActionState::TKind::Running)
            FProgress->setValue(FProgress->value() + 1);
    if (Update.End)
    {
        FHasEnd = true;
        FWhat->setText(Update.Lines.empty() ? Update.End->Result : Update.Lines.back().Text);
    }
    ShowCounts();
}

void TRunPanel::End(const QString& Reason)
{
    FClock.stop();
    ShowTime();
    FProgress->setVisible(false);
    if (!Reason.isEmpty())
        FLog->Add({{TLogLine::TKind::Error, 0, Reason}}, 0);
    if (!FHasEnd)
        FWhat->setText(Reason.isEmpty() ? tr("Ended without a result") : Reason);
}

/// Minutes and seconds, as long as no hour has passed.
void TRunPanel::ShowTime()
{
    const auto Seconds = FElapsed.elapsed() / 1000;
    const auto TwoDigits = [](qint64 Number) { return QStringLiteral("%1").arg(Number, 2, 10, QLatin1Char('0')); };
    FTime->setText(QStringLiteral("%1:%2").arg(Seconds / 60).arg(TwoDigits(Seconds % 60)));
}

void TRunPanel::ShowCounts()
{
    if (FLog->Lines().Gone() > 0)
        FGone->setText(tr("%1 earlier lines are not kept").arg(QLocale().toString(FLog->Lines().Gone())));
}

void TRunPanel::Search(int By)
{
    const bool IsFound = FSearch->text().isEmpty() || FLog->FindText(FSearch->text(), By);
    FGone->setText(IsFound ? QString() : tr("\"%1\" is not found").arg(FSearch->text()));
}

void TRunPanel::BeginSearch()
{
    FSearch->setFocus(Qt::ShortcutFocusReason);
    FSearch->selectAll();
}
