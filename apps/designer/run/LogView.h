#pragma once

#include "apps/designer/run/LogBuffer.h"

#include <QAbstractScrollArea>

#include <cstdint>
#include <utility>

/// Shows the lines of a log. It paints what is in sight and nothing else, so that its work does not grow with the log.
class TLogView final : public QAbstractScrollArea
{
    Q_OBJECT

public:
    TLogView();

    /// Adds lines and keeps the last one in sight, if it was.
    void Add(std::vector<TLogLine> Lines, std::int64_t GoneBefore);
    void Clear();
    [[nodiscard]] const TLogBuffer& Lines() const { return FLines; }
    /// The current line, from 0; -1: none.
    [[nodiscard]] int Current() const;
    void SetCurrent(int Line);

    /// Goes to the next line (By 1) or the one before (-1) that tells of something wrong.
    void FindProblem(int By);
    /// Goes to the next line (or the one before) that holds a text, ignoring case; false if there is none.
    bool FindText(const QString& Text, int By);
    void CopyOut() const;
    void SelectAll();

signals:
    /// Enter, or a double click, on a line of an action (its number, from 1).
    void Chosen(int Action);

protected:
    void paintEvent(QPaintEvent* Event) override;
    void resizeEvent(QResizeEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;
    void mousePressEvent(QMouseEvent* Event) override;
    void mouseMoveEvent(QMouseEvent* Event) override;
    void mouseDoubleClickEvent(QMouseEvent* Event) override;
    void changeEvent(QEvent* Event) override;

private:
    [[nodiscard]] int LineHeight() const;
    [[nodiscard]] int LinesInSight() const;
    [[nodiscard]] int LineAt(int Y) const;
    [[nodiscard]] bool IsAtEnd() const;
    [[nodiscard]] QColor ColourOf(const TLogLine& Line) const;
    [[nodiscard]] std::pair<int, int> Selection() const;
    void PaintLine(QPainter& Painter, int Line, int Top) const;
    void MoveTo(int Line, bool Extend);
    void FitScrollBars();
    void Choose();
    template <typename TFits> bool Find(int By, TFits Fits);

    TLogBuffer FLines;
    // Counted from the first line that ever was, so that they stay when lines go.
    std::int64_t FCurrent = -1;
    std::int64_t FAnchor = -1;
    int FWidest = 0; ///< characters of the longest line so far
};
