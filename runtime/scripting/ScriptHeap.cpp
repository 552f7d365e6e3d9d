#include "runtime/scripting/ScriptHeap.h"

#include "runtime/scripting/duktape/CurrentPlace.h"

#include <fmt/format.h>
#include <stdexcept>

std::string TScriptHeap::MemoryReason()
{
    return fmt::format("the script needs more than {} MiB of memory", MemoryLimit >> 20);
}

// The engine is never taken down in order: a script that was ended leaves it in the middle of something, and all that
// it holds is memory, which goes with FMemory.
TScriptHeap::TScriptHeap(TScriptingServices& Services) : FServices(Services)
{
    FContext = duk_create_heap(Allocate, Reallocate, Free, this, nullptr);
    if (!FContext)
        throw std::runtime_error("the script engine has no memory");
}

TScriptHeap& TScriptHeap::Of(duk_context* Context)
{
    duk_memory_functions Functions;
    duk_get_memory_functions(Context, &Functions);
    return *static_cast<TScriptHeap*>(Functions.udata);
}

TScriptPlace TScriptHeap::CurrentPlace() const
{
    return FContext ? CurrentScriptPlace(FContext) : TScriptPlace();
}

void* TScriptHeap::NoteRefusal(void* Memory)
{
    if (FMemory.TakeRefusal())
    {
        FWasRefused = true;
        if (const int Line = CurrentPlace().Line; Line > 0) // describing the error may be refused memory too
            FRefusalLine = Line;
    }
    return Memory;
}

void* TScriptHeap::Allocate(void* Heap, duk_size_t Size)
{
    auto* Self = static_cast<TScriptHeap*>(Heap);
    return Self->NoteRefusal(Self->FMemory.Allocate(Size));
}

void* TScriptHeap::Reallocate(void* Heap, void* Memory, duk_size_t Size)
{
    auto* Self = static_cast<TScriptHeap*>(Heap);
    return Self->NoteRefusal(Self->FMemory.Reallocate(Memory, Size));
}

void TScriptHeap::Free(void* Heap, void* Memory)
{
    static_cast<TScriptHeap*>(Heap)->FMemory.Free(Memory);
}
