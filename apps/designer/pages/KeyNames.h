#pragma once

#include <string>

class QKeyEvent;

/// A key as pages know it: "Ctrl+Del", "Shift+Insert", "Down"; empty for one that is typed text.
[[nodiscard]] std::string KeyName(const QKeyEvent& Event);
