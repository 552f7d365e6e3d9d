#include "apps/quexley/writers/SpillBuffer.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <system_error>
#include <utility>

namespace
{
constexpr std::size_t MostInMemory = 256 * 1024;
} // namespace

void TSpillBuffer::Append(std::string_view Text)
{
    if (FMemory.size() + Text.size() > MostInMemory)
        MakeRoom();
    FMemory.append(Text);
}

void TSpillBuffer::MakeRoom()
{
    if (!FProblem.empty())
        DropLines();
    else if (const std::error_code Error = Spill())
    {
        FProblem = Error.message();
        FHead = std::exchange(FMemory, {});
    }
    else
        FMemory.clear();
}

std::error_code TSpillBuffer::Spill()
{
    if (!FFile.IsOpen())
        if (const std::error_code Error = FFile.Create())
            return Error;
    if (const std::error_code Error = FFile.Write(FMemory))
        return Error;
    FInFile += FMemory.size();
    return {};
}

/// Forgets the older half of the lines in memory.
void TSpillBuffer::DropLines()
{
    const std::size_t End = std::min(FMemory.find('\n', FMemory.size() / 2), FMemory.size() - 1) + 1;
    FDropped +=
        static_cast<std::size_t>(std::count(FMemory.begin(), FMemory.begin() + static_cast<std::ptrdiff_t>(End), '\n'));
    FMemory.erase(0, End);
}

void TSpillBuffer::MoveTo(TOutput& Output)
{
    if (FFile.IsOpen())
    {
        FFile.Rewind();
        std::string Block(MostInMemory, '\0');
        for (std::size_t Size = 0; FInFile > 0; FInFile -= Size)
        {
            Size = FFile.Read(Block.data(), std::min(Block.size(), FInFile));
            if (Size == 0)
                break;
            Output.Append(std::string_view(Block).substr(0, Size));
        }
    }
    Output.Append(FHead);
    if (FDropped > 0)
        Output.Append(
            fmt::format("  [{} lines were left out: the temporary folder has no room: {}]\n", FDropped, FProblem));
    Output.Append(FMemory);
    Clear();
}

void TSpillBuffer::Clear()
{
    FMemory.clear();
    FHead.clear();
    FProblem.clear();
    FFile.Close();
    FInFile = FDropped = 0;
}
