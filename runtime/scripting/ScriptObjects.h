// Host objects in scripts: their published properties and their methods.
#pragma once

#include "host/QXProperties.h"

#include <duktape.h>
#include <string_view>

namespace ScriptObjects
{
/// Name is how the script calls the object, for messages.
void Push(duk_context* Context, TQXPersistent& Object, std::string_view Name);
/// The host's object behind a value, or null.
[[nodiscard]] TQXPersistent* At(duk_context* Context, duk_idx_t Index);
} // namespace ScriptObjects
