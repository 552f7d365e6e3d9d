#pragma once

#include "host/QXProperties.h"
#include "host/QXScript.h"
#include "runtime/scripting/ScriptMemory.h"

#include <cstddef>
#include <functional>
#include <vector>

/// What a script changes of the host's objects: counted against its memory, and taken back should it fail.
class TScriptChanges
{
public:
    explicit TScriptChanges(TScriptMemory& Memory) : FMemory(Memory) {}

    /// To be called before each write. False: the script has no memory left for the value.
    [[nodiscard]] bool MayWrite(const TQXProperty& Property, const TQXPropertyValue& Value);
    /// To be called before each call of a method, with the bytes of its arguments. False: there is no memory for them.
    [[nodiscard]] bool MayCall(IQXScriptTarget& Target, std::size_t ArgumentBytes);
    /// Puts all objects back as they were, the last change first.
    void TakeBack();

private:
    struct TChange
    {
        const void* What;
        std::function<void()> TakeBack;
        std::size_t Bytes = 0; ///< that the host keeps of the script
    };
    /// The change of What, remembered by Remember when it is the first one.
    [[nodiscard]] TChange& ChangeOf(const void* What, const std::function<std::function<void()>()>& Remember);
    [[nodiscard]] bool Count(TChange& Change, std::size_t Bytes);

    TScriptMemory& FMemory;
    std::vector<TChange> FChanges;
    std::size_t FBytes = 0;
};
