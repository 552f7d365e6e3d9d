#pragma once

#include "host/QXFiles.h"

struct TFileEntry;

/// The files on disk, for all runs but dry ones.
[[nodiscard]] IQXFiles& DiskFiles();

/// What packages see of an entry.
[[nodiscard]] TQXFileEntry HostEntry(TFileEntry Entry);
/// Throws EFileError for a path at which no file can be made: on a drive where the system has none.
void CheckPlace(std::string_view Path);
