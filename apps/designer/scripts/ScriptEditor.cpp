#include "apps/designer/scripts/ScriptEditor.h"

#include "apps/designer/Theme.h"

#include <QFontDatabase>
#include <QPainter>
#include <QTextBlock>

#include <algorithm>

namespace
{
constexpr int Gap = 6;

/// The strip beside the text.
class TMargin final : public QWidget
{
public:
    explicit TMargin(TScriptEditor& Editor) : QWidget(&Editor), FEditor(Editor) {}
    QSize sizeHint() const override { return {FEditor.MarginWidth(), 0}; }

protected:
    void paintEvent(QPaintEvent* Event) override { FEditor.PaintMargin(Event); }

private:
    TScriptEditor& FEditor;
};
} // namespace

TScriptEditor::TScriptEditor() : FMargin(new TMargin(*this))
{
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setTabChangesFocus(true);  // the keyboard must find its way out; scripts are indented by blanks
    setUndoRedoEnabled(false); // what is undone is a step of the project
    connect(this, &QPlainTextEdit::blockCountChanged, this, &TScriptEditor::FitMargin);
    connect(this, &QPlainTextEdit::updateRequest, this, &TScriptEditor::UpdateMargin);
    FitMargin();
}

int TScriptEditor::MarginWidth() const
{
    const auto Digits = static_cast<int>(QString::number(std::max(blockCount(), 99)).size());
    return Digits * fontMetrics().horizontalAdvance(QLatin1Char('9')) + 2 * Gap;
}

void TScriptEditor::FitMargin()
{
    setViewportMargins(MarginWidth(), 0, 0, 0);
    const QRect Area = contentsRect();
    FMargin->setGeometry(Area.left(), Area.top(), MarginWidth(), Area.height());
}

void TScriptEditor::UpdateMargin(const QRect& Area, int Scrolled)
{
    if (Scrolled != 0)
        FMargin->scroll(0, Scrolled);
    else
        FMargin->update(0, Area.y(), FMargin->width(), Area.height());
}

void TScriptEditor::resizeEvent(QResizeEvent* Event)
{
    QPlainTextEdit::resizeEvent(Event);
    FitMargin();
}

void TScriptEditor::changeEvent(QEvent* Event)
{
    QPlainTextEdit::changeEvent(Event);
    if (Event->type() == QEvent::FontChange)
        FitMargin();
    if (Event->type() == QEvent::PaletteChange)
        MarkLine(FMarked);
}

void TScriptEditor::PaintMargin(QPaintEvent* Event)
{
    QPainter Painter(FMargin);
    Painter.fillRect(Event->rect(), palette().color(QPalette::AlternateBase));
    QTextBlock Block = firstVisibleBlock();
    double Top = blockBoundingGeometry(Block).translated(contentOffset()).top();
    for (; Block.isValid() && Top <= Event->rect().bottom(); Block = Block.next())
    {
        const int Line = Block.blockNumber() + 1;
        const double Height = blockBoundingRect(Block).height();
        const auto Meaning = Line == FMarked ? Themes::TMeaning::Error : Themes::TMeaning::Quiet;
        Painter.setPen(Themes::Colour(Meaning, palette()));
        Painter.drawText(QRectF(0, Top, FMargin->width() - Gap, Height), Qt::AlignRight, QString::number(Line));
        Top += Height;
    }
}

void TScriptEditor::ShowText(const QString& Text)
{
    const QString Old = toPlainText();
    if (Old == Text)
        return;
    const auto Begin = std::mismatch(Old.begin(), Old.end(), Text.begin(), Text.end()).first - Old.begin();
    const auto Rest = std::min(Old.size(), Text.size()) - Begin;
    qsizetype Same = 0;
    while (Same < Rest && Old[Old.size() - 1 - Same] == Text[Text.size() - 1 - Same])
        ++Same;
    QTextCursor Cursor(document());
    Cursor.setPosition(static_cast<int>(Begin));
    Cursor.setPosition(static_cast<int>(Old.size() - Same), QTextCursor::KeepAnchor);
    Cursor.insertText(Text.mid(Begin, Text.size() - Same - Begin));
}

void TScriptEditor::MarkLine(int Line)
{
    FMarked = Line;
    FMargin->update();
    QList<QTextEdit::ExtraSelection> Marks;
    if (Line > 0)
    {
        QTextEdit::ExtraSelection Mark;
        Mark.cursor = QTextCursor(document()->findBlockByNumber(Line - 1));
        QColor Colour = Themes::Colour(Themes::TMeaning::Error, palette());
        Colour.setAlpha(48);
        Mark.format.setBackground(Colour);
        Mark.format.setProperty(QTextFormat::FullWidthSelection, true);
        Marks.append(Mark);
    }
    setExtraSelections(Marks);
}

void TScriptEditor::GoToLine(int Line)
{
    setTextCursor(QTextCursor(document()->findBlockByNumber(std::max(Line, 1) - 1)));
    centerCursor();
    setFocus(Qt::OtherFocusReason);
}
