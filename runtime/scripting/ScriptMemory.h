#pragma once

#include <cstddef>

/// The memory of one script: at most so much, and all given back when the object goes, whatever state the engine
/// is in.
class TScriptMemory
{
public:
    explicit TScriptMemory(std::size_t Limit) : FLimit(Limit) {}
    ~TScriptMemory();
    TScriptMemory(const TScriptMemory&) = delete;
    TScriptMemory& operator=(const TScriptMemory&) = delete;

    /// Null when the limit is reached, and for a size of 0.
    [[nodiscard]] void* Allocate(std::size_t Size);
    /// Like std::realloc; null leaves the old block as it is.
    [[nodiscard]] void* Reallocate(void* Memory, std::size_t Size);
    void Free(void* Memory);

    /// Counts memory outside of this object, all that there is at the moment, as the script's. False, and what was
    /// counted before still counts, if that passes the limit.
    [[nodiscard]] bool CountOutside(std::size_t Bytes);
    /// Whether memory was refused since the last call.
    [[nodiscard]] bool TakeRefusal();

private:
    struct alignas(std::max_align_t) TBlock
    {
        TBlock* Previous;
        TBlock* Next;
        std::size_t Size;
    };
    [[nodiscard]] bool MayGrow(std::size_t OldSize, std::size_t NewSize);
    void Link(TBlock* Block);

    std::size_t FLimit;
    std::size_t FUsed = 0;
    std::size_t FOutside = 0;
    bool FRefused = false;
    TBlock* FFirst = nullptr;
};
