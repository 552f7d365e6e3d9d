#include "runtime/scripting/ScriptMemory.h"

#include <cstdlib>
#include <new>
#include <utility>

namespace
{
// Small blocks may pass the limit by this much: the engine needs some to say what happened.
constexpr std::size_t Reserve = 256 * 1024;
constexpr std::size_t SmallBlock = 4096;
} // namespace

TScriptMemory::~TScriptMemory()
{
    while (FFirst)
        std::free(std::exchange(FFirst, FFirst->Next));
}

bool TScriptMemory::MayGrow(std::size_t OldSize, std::size_t NewSize)
{
    const std::size_t Limit = NewSize <= SmallBlock ? FLimit + Reserve : FLimit;
    if (NewSize <= Limit && FOutside + FUsed - OldSize <= Limit - NewSize)
        return true;
    FRefused = true;
    return false;
}

bool TScriptMemory::CountOutside(std::size_t Bytes)
{
    FRefused = Bytes > FLimit || FUsed > FLimit - Bytes;
    if (!FRefused)
        FOutside = Bytes;
    return !FRefused;
}

void TScriptMemory::Link(TBlock* Block)
{
    if (Block->Previous)
        Block->Previous->Next = Block;
    else
        FFirst = Block;
    if (Block->Next)
        Block->Next->Previous = Block;
}

void* TScriptMemory::Allocate(std::size_t Size)
{
    if (Size == 0 || !MayGrow(0, Size))
        return nullptr;
    void* Memory = std::malloc(sizeof(TBlock) + Size);
    if (!Memory)
        return nullptr;
    auto* Block = ::new (Memory) TBlock{nullptr, FFirst, Size};
    Link(Block);
    FUsed += Size;
    return Block + 1;
}

void* TScriptMemory::Reallocate(void* Memory, std::size_t Size)
{
    if (!Memory)
        return Allocate(Size);
    if (Size == 0)
    {
        Free(Memory);
        return nullptr;
    }
    TBlock* Old = static_cast<TBlock*>(Memory) - 1;
    const std::size_t OldSize = Old->Size;
    if (Size > OldSize && !MayGrow(OldSize, Size))
        return nullptr;
    auto* Block = static_cast<TBlock*>(std::realloc(Old, sizeof(TBlock) + Size));
    if (!Block)
        return nullptr;
    Block->Size = Size;
    Link(Block);
    FUsed += Size - OldSize;
    return Block + 1;
}

void TScriptMemory::Free(void* Memory)
{
    if (!Memory)
        return;
    TBlock* Block = static_cast<TBlock*>(Memory) - 1;
    (Block->Previous ? Block->Previous->Next : FFirst) = Block->Next;
    if (Block->Next)
        Block->Next->Previous = Block->Previous;
    FUsed -= Block->Size;
    std::free(Block);
}

bool TScriptMemory::TakeRefusal()
{
    return std::exchange(FRefused, false);
}
