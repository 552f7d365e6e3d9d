// The thread that reads ahead, and what it hands over.
#pragma once

#include "platform/ReadAhead.h"
#include "platform/posix/FileImage.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

/// Both threads read: each claims the next file of the list, the one that takes them only when it has caught up with
/// the other, whose last file is just being read.
struct TReadAhead::TImpl
{
    explicit TImpl(const std::vector<std::string>& Paths);
    ~TImpl();
    TImpl(const TImpl&) = delete;
    TImpl& operator=(const TImpl&) = delete;

    /// What was read of the next file, if that is the one asked for, it was read at all and is still the same.
    [[nodiscard]] std::optional<TFileImage> Take(const std::string& Path);
    /// Closes a file that was taken, later and in the other thread: a file that was replaced goes with that, which
    /// takes as long as making a new one.
    void Retire(TDescriptor File);
    /// Says that a file was replaced: what was read of it, under whichever name, is out of date.
    void Forget(const struct stat& Replaced);

private:
    using TIdentity = std::pair<dev_t, ino_t>;
    static constexpr std::size_t Window = 64; ///< files that are kept at most
    static constexpr std::size_t Step = 32;   ///< so often is the reader told how far it may go

    struct TSlot
    {
        std::optional<TFileImage> Image;
        std::optional<TDescriptor> Retired;
        std::atomic<std::size_t> Filled = 0; ///< for the file of this number, from 1
    };

    void ReadFiles();
    [[nodiscard]] bool ReadNext();
    [[nodiscard]] bool IsUsable(const TFileImage& Image) const;
    [[nodiscard]] TSlot& Slot(std::size_t Index) { return FSlots[Index % Window]; }

    const std::vector<std::string>& FPaths;
    std::array<TSlot, Window> FSlots;
    std::size_t FNext = 0;                         ///< the file to be taken next
    std::array<TIdentity, 2 * Window> FReplaced{}; ///< the last ones
    std::size_t FReplacedCount = 0;
    std::atomic<std::size_t> FClaimed = 0;
    std::atomic<std::size_t> FLimit = Window; ///< the reader stays below it
    std::thread FReader; ///< none where it could not be started: then whoever takes the files reads them all
};
