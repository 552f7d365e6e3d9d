#pragma once

#include <QPlainTextEdit>

/// A text of a script with the numbers of its lines, one of which may be marked as wrong.
class TScriptEditor final : public QPlainTextEdit
{
    Q_OBJECT

public:
    TScriptEditor();

    /// Shows a text; where only a part differs from what is shown, the cursor stays.
    void ShowText(const QString& Text);
    /// Marks a line, from 1; 0: none.
    void MarkLine(int Line);
    void GoToLine(int Line);

    [[nodiscard]] int MarginWidth() const;
    void PaintMargin(QPaintEvent* Event);

protected:
    void resizeEvent(QResizeEvent* Event) override;
    void changeEvent(QEvent* Event) override;

private:
    void FitMargin();
    void UpdateMargin(const QRect& Area, int Scrolled);

    QWidget* FMargin;
    int FMarked = 0;
};
