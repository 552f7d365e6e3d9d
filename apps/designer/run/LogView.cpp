#include "apps/designer/run/LogView.h"

#include "apps/designer/Theme.h"

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace
{
constexpr int Margin = 4;

bool IsProblem(const TLogLine& Line)
{
    return Line.Kind == TLogLine::TKind::Error || Line.Kind == TLogLine::TKind::Warning;
}
} // namespace

TLogView::TLogView()
{
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Log of the run"));
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setCursor(Qt::ArrowCursor);
}

int TLogView::LineHeight() const
{
    return fontMetrics().lineSpacing();
}

int TLogView::LinesInSight() const
{
    return std::max(1, viewport()->height() / LineHeight());
}

int TLogView::LineAt(int Y) const
{
    return std::clamp(verticalScrollBar()->value() + Y / LineHeight(), 0, std::max(0, FLines.Count() - 1));
}

bool TLogView::IsAtEnd() const
{
    return verticalScrollBar()->value() == verticalScrollBar()->maximum();
}

void TLogView::Add(std::vector<TLogLine> Lines, std::int64_t GoneBefore)
{
    if (Lines.empty())
        return;
    const bool Follows = IsAtEnd();
    const std::int64_t Top = FLines.Gone() + verticalScrollBar()->value();
    for (const TLogLine& Line : Lines)
        FWidest = std::max(FWidest, static_cast<int>(Line.Text.size()));
    FLines.Add(std::move(Lines), GoneBefore);
    FitScrollBars();
    verticalScrollBar()->setValue(Follows ? verticalScrollBar()->maximum()
                                          : static_cast<int>(std::max<std::int64_t>(0, Top - FLines.Gone())));
    viewport()->update();
}

void TLogView::Clear()
{
    FLines.Clear();
    FCurrent = FAnchor = -1;
    FWidest = 0;
    FitScrollBars();
    viewport()->update();
}

void TLogView::FitScrollBars()
{
    verticalScrollBar()->setRange(0, std::max(0, FLines.Count() - LinesInSight()));
    verticalScrollBar()->setPageStep(LinesInSight());
    const int Width = FWidest * fontMetrics().horizontalAdvance(QLatin1Char('0')) + 2 * Margin;
    horizontalScrollBar()->setRange(0, std::max(0, Width - viewport()->width()));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(fontMetrics().averageCharWidth() * 4);
}

int TLogView::Current() const
{
    return FCurrent < FLines.Gone() ? -1 : static_cast<int>(FCurrent - FLines.Gone());
}

void TLogView::SetCurrent(int Line)
{
    MoveTo(Line, false);
}

void TLogView::MoveTo(int Line, bool Extend)
{
    if (FLines.Count() == 0)
        return;
    const int Place = std::clamp(Line, 0, FLines.Count() - 1);
    FCurrent = FLines.Gone() + Place;
    if (!Extend || FAnchor < FLines.Gone())
        FAnchor = FCurrent;
    const int Top = verticalScrollBar()->value();
    verticalScrollBar()->setValue(std::clamp(Top, Place - LinesInSight() + 1, Place));
    setAccessibleDescription(FLines[Place].Text);
    viewport()->update();
}

std::pair<int, int> TLogView::Selection() const
{
    const auto [First, Last] = std::minmax(FAnchor, FCurrent);
    return {static_cast<int>(std::max<std::int64_t>(First - FLines.Gone(), 0)), static_cast<int>(Last - FLines.Gone())};
}

QColor TLogView::ColourOf(const TLogLine& Line) const
{
    using TKind = TLogLine::TKind;
    switch (Line.Kind)
    {
    case TKind::Error:
        return Themes::Colour(Themes::TMeaning::Error, palette());
    case TKind::Warning:
    case TKind::ErrorOutput:
        return Themes::Colour(Themes::TMeaning::Warning, palette());
    case TKind::Success:
        return Themes::Colour(Themes::TMeaning::Success, palette());
    case TKind::Process:
        return Themes::Colour(Themes::TMeaning::Quiet, palette());
    case TKind::Heading:
    case TKind::Text:
    case TKind::Output:
        break;
    }
    return palette().color(QPalette::Text);
}

void TLogView::PaintLine(QPainter& Painter, int Line, int Top) const
{
    const QRect Row(0, Top, viewport()->width(), LineHeight());
    const auto [First, Last] = Selection();
    const bool IsSelected = FCurrent >= 0 && Line >= First && Line <= Last;
    if (IsSelected)
        Painter.fillRect(Row, palette().brush(hasFocus() ? QPalette::Active : QPalette::Inactive, QPalette::Highlight));
    const TLogLine& Shown = FLines[Line];
    QFont Font = font();
    Font.setBold(Shown.Kind == TLogLine::TKind::Heading);
    Painter.setFont(Font);
    Painter.setPen(IsSelected ? palette().color(QPalette::HighlightedText) : ColourOf(Shown));
    Painter.drawText(Margin - horizontalScrollBar()->value(), Top + fontMetrics().ascent(), Shown.Text);
}

void TLogView::paintEvent(QPaintEvent* /*Event*/)
{
    QPainter Painter(viewport());
    const int First = verticalScrollBar()->value();
    const int End = std::min(FLines.Count(), First + LinesInSight() + 1);
    for (int Line = First; Line < End; ++Line)
        PaintLine(Painter, Line, (Line - First) * LineHeight());
}

void TLogView::resizeEvent(QResizeEvent* Event)
{
    const bool Follows = IsAtEnd();
    QAbstractScrollArea::resizeEvent(Event);
    FitScrollBars();
    if (Follows)
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void TLogView::changeEvent(QEvent* Event)
{
    QAbstractScrollArea::changeEvent(Event);
    if (Event->type() == QEvent::FontChange)
        FitScrollBars();
}

void TLogView::keyPressEvent(QKeyEvent* Event)
{
    const bool Extend = Event->modifiers().testFlag(Qt::ShiftModifier);
    const int From = Current() < 0 ? verticalScrollBar()->value() : Current();
    if (Event->matches(QKeySequence::Copy))
        return CopyOut();
    if (Event->matches(QKeySequence::SelectAll))
        return SelectAll();
    switch (Event->key())
    {
    case Qt::Key_Up:
        return MoveTo(From - 1, Extend);
    case Qt::Key_Down:
        return MoveTo(From + 1, Extend);
    case Qt::Key_PageUp:
        return MoveTo(From - LinesInSight(), Extend);
    case Qt::Key_PageDown:
        return MoveTo(From + LinesInSight(), Extend);
    case Qt::Key_Home:
        return MoveTo(0, Extend);
    case Qt::Key_End:
        return MoveTo(FLines.Count() - 1, Extend);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return Choose();
    default:
        QAbstractScrollArea::keyPressEvent(Event);
    }
}

void TLogView::mousePressEvent(QMouseEvent* Event)
{
    if (Event->button() == Qt::LeftButton)
        MoveTo(LineAt(Event->pos().y()), Event->modifiers().testFlag(Qt::ShiftModifier));
}

void TLogView::mouseMoveEvent(QMouseEvent* Event)
{
    if (Event->buttons().testFlag(Qt::LeftButton))
        MoveTo(LineAt(Event->pos().y()), true);
}

void TLogView::mouseDoubleClickEvent(QMouseEvent* /*Event*/)
{
    Choose();
}

void TLogView::Choose()
{
    if (Current() >= 0 && FLines[Current()].Action > 0)
        emit Chosen(FLines[Current()].Action);
}

template <typename TFits> bool TLogView::Find(int By, TFits Fits)
{
    const int Start = Current() < 0 && By < 0 ? FLines.Count() : Current();
    for (int Line = Start + By; Line >= 0 && Line < FLines.Count(); Line += By)
        if (Fits(FLines[Line]))
        {
            MoveTo(Line, false);
            return true;
        }
    return false;
}

void TLogView::FindProblem(int By)
{
    if (!Find(By, IsProblem))
        QApplication::beep();
}

bool TLogView::FindText(const QString& Text, int By)
{
    return Find(By, [&](const TLogLine& Line) { return Line.Text.contains(Text, Qt::CaseInsensitive); });
}

void TLogView::CopyOut() const
{
    if (Current() < 0)
        return;
    const auto [First, Last] = Selection();
    QStringList Texts;
    for (int Line = First; Line <= Last; ++Line)
        Texts.append(FLines[Line].Text);
    QApplication::clipboard()->setText(Texts.join(QLatin1Char('\n')));
}

void TLogView::SelectAll()
{
    if (FLines.Count() == 0)
        return;
    FAnchor = FLines.Gone();
    FCurrent = FLines.Gone() + FLines.Count() - 1;
    viewport()->update();
}
