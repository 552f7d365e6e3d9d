#pragma once

#include "apps/quexley/writers/Output.h"

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

/// Holds back text that may never be wanted: a little in memory, more in a temporary file without a name.
class TSpillBuffer
{
public:
    TSpillBuffer();
    /// Throws EFileError when the temporary file cannot be written.
    void Append(std::string_view Text);
    /// Brings what was held back to Output and forgets it.
    void MoveTo(TOutput& Output);
    void Clear();

private:
    void Spill();
    std::string FMemory;
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> FFile;
};
