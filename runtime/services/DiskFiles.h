#pragma once

#include "host/QXFiles.h"

/// The files on disk, for all runs but dry ones.
[[nodiscard]] IQXFiles& DiskFiles();
