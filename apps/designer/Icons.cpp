#include "apps/designer/Icons.h"

#include "apps/designer/Theme.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>

namespace
{
/// Draws one kind of icon on a square of 16 units.
class TCommandIconEngine final : public QIconEngine
{
public:
    explicit TCommandIconEngine(TCommandIcon Kind) : FKind(Kind) {}

    QIconEngine* clone() const override { return new TCommandIconEngine(*this); }
    QPixmap pixmap(const QSize& Size, QIcon::Mode Mode, QIcon::State State) override
    {
        QPixmap Pixmap(Size);
        Pixmap.fill(Qt::transparent);
        QPainter Painter(&Pixmap);
        paint(&Painter, QRect(QPoint(), Size), Mode, State);
        return Pixmap;
    }
    void paint(QPainter* Painter, const QRect& Area, QIcon::Mode Mode, QIcon::State /*State*/) override
    {
        constexpr double Units = 16;
        Painter->save();
        Painter->setRenderHint(QPainter::Antialiasing);
        Painter->translate(Area.topLeft());
        Painter->scale(Area.width() / Units, Area.height() / Units);
        const QPalette Palette = QApplication::palette();
        const auto Group = Mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        Draw(*Painter, Palette.color(Group, QPalette::ButtonText), Mode != QIcon::Disabled);
        Painter->restore();
    }

private:
    void Draw(QPainter& Painter, const QColor& Ink, bool IsColoured) const;
    static void DrawArrow(QPainter& Painter, bool IsForward);

    TCommandIcon FKind;
};

/// A curved arrow that points back, or forward.
void TCommandIconEngine::DrawArrow(QPainter& Painter, bool IsForward)
{
    if (IsForward)
    {
        Painter.translate(16, 0);
        Painter.scale(-1, 1);
    }
    QPainterPath Path(QPointF(3, 6.5));
    Path.lineTo(9, 6.5);
    Path.cubicTo(14.5, 6.5, 14.5, 13, 9, 13);
    Path.lineTo(5.5, 13);
    Painter.drawPath(Path);
    Painter.drawPolyline(QPolygonF({{6, 3.5}, {3, 6.5}, {6, 9.5}}));
}

void TCommandIconEngine::Draw(QPainter& Painter, const QColor& Ink, bool IsColoured) const
{
    const auto Tone = [&](Themes::TMeaning Meaning) {
        return IsColoured ? Themes::Colour(Meaning, QApplication::palette()) : Ink;
    };
    const QPolygonF Triangle({{4.5, 2.5}, {13, 8}, {4.5, 13.5}});
    Painter.setPen(QPen(Ink, 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    switch (FKind)
    {
    case TCommandIcon::New:
        Painter.drawPolygon(QPolygonF({{3.5, 1.5}, {9.5, 1.5}, {12.5, 4.5}, {12.5, 14.5}, {3.5, 14.5}}));
        Painter.drawPolyline(QPolygonF({{9.5, 1.5}, {9.5, 4.5}, {12.5, 4.5}}));
        break;
    case TCommandIcon::Open:
        Painter.drawPolyline(QPolygonF({{2, 13}, {2, 3.5}, {6, 3.5}, {7.5, 5.5}, {12.5, 5.5}, {12.5, 7.5}}));
        Painter.drawPolygon(QPolygonF({{4.5, 7.5}, {15, 7.5}, {12.5, 13}, {2, 13}}));
        break;
    case TCommandIcon::Save:
        Painter.drawPolygon(QPolygonF({{2.5, 2.5}, {11.5, 2.5}, {13.5, 4.5}, {13.5, 13.5}, {2.5, 13.5}}));
        Painter.drawRect(QRectF(5, 2.5, 5, 3.5));
        Painter.drawRect(QRectF(4.5, 8.5, 7, 5));
        break;
    case TCommandIcon::Undo:
    case TCommandIcon::Redo:
        DrawArrow(Painter, FKind == TCommandIcon::Redo);
        break;
    case TCommandIcon::Run:
        Painter.setPen(QPen(Tone(Themes::TMeaning::Success), 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        Painter.setBrush(Painter.pen().color());
        Painter.drawPolygon(Triangle);
        break;
    case TCommandIcon::DryRun:
        Painter.drawPolygon(Triangle);
        break;
    case TCommandIcon::Stop:
        Painter.setPen(QPen(Tone(Themes::TMeaning::Error), 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        Painter.setBrush(Painter.pen().color());
        Painter.drawRect(QRectF(3.5, 3.5, 9, 9));
        break;
    case TCommandIcon::Validate:
        Painter.setPen(QPen(Tone(Themes::TMeaning::Success), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        Painter.drawPolyline(QPolygonF({{2.5, 8.5}, {6.5, 12.5}, {13.5, 3.5}}));
        break;
    }
}
} // namespace

QIcon CommandIcon(TCommandIcon Kind)
{
    return QIcon(new TCommandIconEngine(Kind));
}
