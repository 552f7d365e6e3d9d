#pragma once

#include <duktape.h>

/// The line of the script that runs at the moment, 0 if none does.
[[nodiscard]] int CurrentScriptLine(duk_context* Context);
