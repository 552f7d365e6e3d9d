#pragma once

#include <QColor>
#include <QPalette>
#include <QString>

/// The colours of the program: those of the desktop, or ones of its own.
enum class TTheme { System, Light, Dark };

namespace Themes
{
/// Gives the whole program a theme.
void Apply(TTheme Theme);
[[nodiscard]] TTheme FromName(const QString& Name);
[[nodiscard]] QString Name(TTheme Theme);

/// What a colour says. Each is readable on the palette's base.
enum class TMeaning { Error, Warning, Success, Quiet };
[[nodiscard]] QColor Colour(TMeaning Meaning, const QPalette& Palette);
} // namespace Themes
