#pragma once

#include "host/QXForms.h"

class QWidget;

/// Shows the editor of a list of paths or words; the answer is one text joined by the dialog's separator.
[[nodiscard]] TQXAnswer AskForPaths(QWidget* Parent, const TQXDialog& Dialog);
