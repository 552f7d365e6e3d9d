// Our settings of the script engine, read in the middle of its configuration.
#pragma once

#include "runtime/scripting/ScriptLimits.h"

// The engine stays inside our library.
#undef DUK_EXTERNAL
#undef DUK_EXTERNAL_DECL
#define DUK_EXTERNAL __attribute__((visibility("hidden")))
#define DUK_EXTERNAL_DECL __attribute__((visibility("hidden"))) extern

#define DUK_USE_CPP_EXCEPTIONS
#define DUK_USE_INTERRUPT_COUNTER
#define DUK_USE_EXEC_TIMEOUT_CHECK(Data) (QXCheckScriptLimits(), 0)
#define DUK_USE_NATIVE_STACK_CHECK() (QXScriptTick(), TScriptLimits::IsStackLow())

/// Looks at the limits now, and ends the script when it passed one.
void QXCheckScriptLimits();

/// Counts one step of the engine and looks at the limits after every so many.
inline void QXScriptTick()
{
    if (--TScriptLimits::StepsToCheck == 0)
        QXCheckScriptLimits();
}

// The engine itself asks only between the script's own instructions. These stand in all that it does for them, in the
// loops over huge arrays and texts too, so a single long-running operation ends in time as well.
#undef DUK_UNLIKELY
#undef DUK_MEMCMP
#define DUK_UNLIKELY(Condition) (QXScriptTick(), __builtin_expect((Condition), 0))
#define DUK_MEMCMP(Left, Right, Size) (QXScriptTick(), memcmp((Left), (Right), (Size)))
