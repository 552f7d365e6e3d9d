// The script engine, compiled as C++ with our settings, and what needs to see inside it.
#include <duktape.c>

#include "runtime/scripting/duktape/CurrentPlace.h"

static_assert(DUK_VERSION == 20700, "CurrentScriptPlace reads structures of this version");

namespace
{
/// The instruction that runs. Where the engine looks at its time, between two, it is the one to come.
duk_uint_fast32_t InstructionOf(duk_hthread* Thread, duk_activation* Activation)
{
    auto* Function = reinterpret_cast<duk_hcompfunc*>(Activation->func);
    const auto Next = Activation->curr_pc - DUK_HCOMPFUNC_GET_CODE_BASE(Thread->heap, Function);
    const bool IsBetween = DUK_HEAP_HAS_INTERRUPT_RUNNING(Thread->heap) && Activation == Thread->callstack_curr;
    return static_cast<duk_uint_fast32_t>(IsBetween || Next == 0 ? Next : Next - 1);
}

int LineOf(duk_hthread* Thread, duk_activation* Activation)
{
    duk_tval* Table =
        duk_hobject_find_entry_tval_ptr(Thread->heap, Activation->func, DUK_HEAP_STRING_INT_PC2LINE(Thread->heap));
    if (!Table || !DUK_TVAL_IS_BUFFER(Table))
        return 0;
    auto* Buffer = reinterpret_cast<duk_hbuffer_fixed*>(DUK_TVAL_GET_BUFFER(Table));
    return static_cast<int>(duk__hobject_pc2line_query_raw(Thread, Buffer, InstructionOf(Thread, Activation)));
}

/// Whether a function is one of the engine's that make or match regular expressions.
bool IsOfRegExp(const duk_hobject* Function)
{
    if (!Function || !DUK_HOBJECT_IS_NATFUNC(Function))
        return false;
    for (const duk_c_function Known :
         {duk_bi_regexp_constructor, duk_bi_regexp_prototype_exec, duk_bi_regexp_prototype_test,
          duk_bi_string_prototype_match, duk_bi_string_prototype_replace, duk_bi_string_prototype_search,
          duk_bi_string_prototype_split})
        if (reinterpret_cast<const duk_hnatfunc*>(Function)->func == Known)
            return true;
    return false;
}
} // namespace

/// Only reads: the engine may be in the middle of anything, and out of memory.
TScriptPlace CurrentScriptPlace(duk_context* Context)
{
    TScriptPlace Place;
    duk_hthread* Thread = Context->heap->curr_thread;
    if (!Thread || !Thread->callstack_curr)
        return Place;
    Place.IsInRegExp = IsOfRegExp(Thread->callstack_curr->func);
    duk_hthread_sync_currpc(Thread);
    for (duk_activation* Activation = Thread->callstack_curr; Activation; Activation = Activation->parent)
        if (Activation->func && DUK_HOBJECT_IS_COMPFUNC(Activation->func))
        {
            Place.Line = LineOf(Thread, Activation);
            break;
        }
    return Place;
}

/// The engine lets this one exception pass through everything that the script would catch with.
void QXCheckScriptLimits()
{
    if (TScriptLimits::CheckCurrent())
        throw duk_fatal_exception("the script passed a limit");
}
