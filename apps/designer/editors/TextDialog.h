#pragma once

#include <QString>

class QWidget;

/// Lets a text of several lines be edited; true if it was confirmed. Note says what a line is.
[[nodiscard]] bool EditLines(QWidget* Parent, const QString& Title, const QString& Note, QString& Text);
/// Asks for a text of several lines; the old one if the user does not want another.
[[nodiscard]] QString AskForLines(QWidget* Parent, const QString& Title, const QString& Note, const QString& Text);
