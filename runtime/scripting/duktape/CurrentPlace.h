#pragma once

#include "runtime/scripting/ScriptPlace.h"

#include <duktape.h>

/// Where the script that runs is at the moment.
[[nodiscard]] TScriptPlace CurrentScriptPlace(duk_context* Context);
