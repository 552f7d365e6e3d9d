// Texts that several formats have for an event.
#pragma once

#include "runtime/RunEvents.h"

#include <string>

[[nodiscard]] std::string ScriptErrorText(const TScriptErrorEvent& Event);
