#pragma once

#include "apps/quexley/writers/Output.h"
#include "platform/SpillFile.h"

#include <string>
#include <string_view>

/// Holds back lines that may never be wanted: a little in memory, more in a temporary file without a name. Where that
/// has no room, lines in the middle are lost, and one says so.
class TSpillBuffer
{
public:
    void Append(std::string_view Text);
    /// Brings what was held back to Output and forgets it.
    void MoveTo(TOutput& Output);
    void Clear();

private:
    void MakeRoom();
    [[nodiscard]] std::error_code Spill();
    void DropLines();

    TSpillFile FFile;
    std::size_t FInFile = 0;
    std::string FHead; ///< what did not fit into the file first
    std::string FMemory;
    std::string FProblem; ///< why the file takes no more
    std::size_t FDropped = 0;
};
