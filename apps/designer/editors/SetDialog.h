#pragma once

#include <QString>

class QWidget;
struct TQXProperty;

/// Asks which elements of a set are wanted; Text and what comes back have an element on each line.
[[nodiscard]] QString AskForSet(QWidget* Parent, const TQXProperty& Property, const QString& Text);
