// The icons of commands, drawn in the colours of the palette, so that they fit light and dark and any size.
#pragma once

#include <QIcon>

enum class TCommandIcon { New, Open, Save, Undo, Redo, Run, DryRun, Stop, Validate };

[[nodiscard]] QIcon CommandIcon(TCommandIcon Kind);
