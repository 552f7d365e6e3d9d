// A file as it was read, to be replaced.
#pragma once

#include "platform/FileRewrite.h"
#include "platform/posix/FilesPosix.h"

#include <chrono>
#include <cstddef>
#include <limits>
#include <string>

struct TFileImage
{
    TFileRewrite::TState State = TFileRewrite::TState::Missing;
    std::string Path; ///< as it is spelled on disk, behind symbolic links
    TDescriptor File{-1};
    struct stat Status = {};
    std::string AccessList;
    std::string Bytes;
    bool IsBehindLink = false;                       ///< the path given is a symbolic link
    std::chrono::steady_clock::time_point ReadSince; ///< when the reading began
};

/// Reads a file if it can be rewritten. Throws EFileError, also for one of more bytes than MaximumSize.
[[nodiscard]] TFileImage LoadImage(const std::string& Path,
                                   std::size_t MaximumSize = std::numeric_limits<std::size_t>::max());
/// Whether it was read a while ago.
[[nodiscard]] bool IsOld(const TFileImage& Image);
/// Whether its path still leads to it. It may have been moved away with its folder, which does not change it.
[[nodiscard]] bool IsAtItsPath(const TFileImage& Image);
/// Whether the file is still the one that was read.
[[nodiscard]] bool IsCurrent(const TFileImage& Image);
/// Whether a path leads to the file that was there, unchanged: for one that is not open any longer.
[[nodiscard]] bool IsUnchanged(const std::string& Path, const struct stat& Then);
