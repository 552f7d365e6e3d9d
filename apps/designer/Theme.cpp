#include "apps/designer/Theme.h"

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

#include <array>
#include <utility>

namespace
{
constexpr std::array<const char*, 3> Names = {"system", "light", "dark"}; // in the order of TTheme

struct TTones
{
    QRgb Window, Base, Alternate, Text, Button, Disabled, Quiet, Highlight, HighlightedText, Link, ToolTip;
};
constexpr TTones LightTones = {0xFFF3F3F3, 0xFFFFFFFF, 0xFFF7F7F9, 0xFF1B1B1B, 0xFFEBEBEB, 0xFF8A8A8A,
                               0xFF6B6B70, 0xFF2F6FB5, 0xFFFFFFFF, 0xFF1F5FA8, 0xFFFFFFE8};
constexpr TTones DarkTones = {0xFF3A3A3D, 0xFF222225, 0xFF29292C, 0xFFE8E8E8, 0xFF4A4A4E, 0xFF8E8E93,
                              0xFFA8A8AE, 0xFF3D7CC0, 0xFFFFFFFF, 0xFF7FB2EA, 0xFF3A3A30};

QPalette PaletteOf(const TTones& Tones)
{
    QPalette Palette(QColor(Tones.Button), QColor(Tones.Window));
    const auto Set = [&](QPalette::ColorRole Role, QRgb Colour) { Palette.setColor(Role, QColor(Colour)); };
    for (const auto Role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
    {
        Set(Role, Tones.Text);
        Palette.setColor(QPalette::Disabled, Role, QColor(Tones.Disabled));
    }
    Set(QPalette::Base, Tones.Base);
    Set(QPalette::AlternateBase, Tones.Alternate);
    Set(QPalette::Highlight, Tones.Highlight);
    Set(QPalette::HighlightedText, Tones.HighlightedText);
    Set(QPalette::Link, Tones.Link);
    Set(QPalette::ToolTipBase, Tones.ToolTip);
    Set(QPalette::PlaceholderText, Tones.Quiet);
    return Palette;
}

bool IsDark(const QPalette& Palette)
{
    return Palette.color(QPalette::Base).lightness() < Palette.color(QPalette::Text).lightness();
}
} // namespace

namespace
{
/// On dark ground a box that is not ticked has an edge that can be seen.
class TEdgedStyle final : public QProxyStyle
{
public:
    TEdgedStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

    void drawPrimitive(PrimitiveElement Element, const QStyleOption* Option, QPainter* Painter,
                       const QWidget* Widget) const override
    {
        QProxyStyle::drawPrimitive(Element, Option, Painter, Widget);
        const bool IsRound = Element == PE_IndicatorRadioButton;
        if (!IsDark(Option->palette) ||
            (!IsRound && Element != PE_IndicatorCheckBox && Element != PE_IndicatorItemViewItemCheck))
            return;
        const QRectF Edge = QRectF(Option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
        Painter->save();
        Painter->setRenderHint(QPainter::Antialiasing);
        Painter->setPen(QColor(EdgeTone));
        Painter->setBrush(Qt::NoBrush);
        Painter->drawRoundedRect(Edge, IsRound ? Edge.width() / 2 : 2, IsRound ? Edge.height() / 2 : 2);
        Painter->restore();
    }

private:
    static constexpr QRgb EdgeTone = 0xFF8E8E93;
};
} // namespace

namespace Themes
{
void Apply(TTheme Theme)
{
    static const QPalette OfSystem = QApplication::palette();
    switch (Theme)
    {
    case TTheme::System:
        return QApplication::setPalette(OfSystem);
    case TTheme::Light:
        QApplication::setStyle(new TEdgedStyle);
        return QApplication::setPalette(PaletteOf(LightTones));
    case TTheme::Dark:
        QApplication::setStyle(new TEdgedStyle);
        return QApplication::setPalette(PaletteOf(DarkTones));
    }
}

TTheme FromName(const QString& Name)
{
    for (std::size_t Index = 0; Index < Names.size(); ++Index)
        if (Name == QLatin1String(Names[Index]))
            return static_cast<TTheme>(Index);
    return TTheme::System;
}

QString Name(TTheme Theme)
{
    return QString::fromLatin1(Names[static_cast<std::size_t>(Theme)]);
}

QColor Colour(TMeaning Meaning, const QPalette& Palette)
{
    constexpr std::array<std::pair<QRgb, QRgb>, 4> Tones = {{
        {0xFFB3261E, 0xFFFF8A80}, // error: on light, on dark
        {0xFF8A5A00, 0xFFF2C14E},
        {0xFF1B7A34, 0xFF7BD88F},
        {0xFF636366, 0xFFB4B4B8},
    }};
    const auto& [OnLight, OnDark] = Tones[static_cast<std::size_t>(Meaning)];
    return {IsDark(Palette) ? OnDark : OnLight};
}
} // namespace Themes
