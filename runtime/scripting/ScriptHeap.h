#pragma once

#include "runtime/scripting/ScriptChanges.h"
#include "runtime/scripting/ScriptMemory.h"
#include "runtime/scripting/ScriptPlace.h"

#include <duktape.h>
#include <string>

class TScriptingServices;

/// What the engine's callbacks know of the script that they work for.
class TScriptHeap
{
public:
    static constexpr std::size_t MemoryLimit = std::size_t{64} << 20;

    /// What a script is told that needs more.
    [[nodiscard]] static std::string MemoryReason();

    /// Makes the engine; throws std::runtime_error if it does not come up.
    explicit TScriptHeap(TScriptingServices& Services);
    TScriptHeap(const TScriptHeap&) = delete;
    TScriptHeap& operator=(const TScriptHeap&) = delete;

    [[nodiscard]] static TScriptHeap& Of(duk_context* Context);
    [[nodiscard]] duk_context* Context() const { return FContext; }
    [[nodiscard]] TScriptingServices& Services() const { return FServices; }

    [[nodiscard]] TScriptChanges& Changes() { return FChanges; }

    /// Where the script is at the moment.
    [[nodiscard]] TScriptPlace CurrentPlace() const;
    /// Remembers the line as that of the last throw.
    void NoteThrow() { FThrowLine = CurrentPlace().Line; }
    [[nodiscard]] int ThrowLine() const { return FThrowLine; }
    /// The line at which memory was refused last, 0 if it never was.
    [[nodiscard]] int RefusalLine() const { return FRefusalLine; }
    [[nodiscard]] bool WasRefused() const { return FWasRefused; }

private:
    [[nodiscard]] static void* Allocate(void* Heap, duk_size_t Size);
    [[nodiscard]] static void* Reallocate(void* Heap, void* Memory, duk_size_t Size);
    static void Free(void* Heap, void* Memory);
    void* NoteRefusal(void* Memory);

    TScriptMemory FMemory{MemoryLimit};
    TScriptChanges FChanges{FMemory};
    TScriptingServices& FServices;
    duk_context* FContext = nullptr;
    int FThrowLine = 0;
    int FRefusalLine = 0;
    bool FWasRefused = false;
};
