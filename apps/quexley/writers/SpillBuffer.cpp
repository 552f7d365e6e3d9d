#include "apps/quexley/writers/SpillBuffer.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <system_error>
#include <utility>

namespace
{
constexpr std::size_t MostInMemory = 256 * 1024;
} // namespace

TSpillBuffer::TSpillBuffer() : FFile(nullptr, &std::fclose) {}

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
    else if (Spill())
        FMemory.clear();
    else
    {
        FProblem = std::generic_category().message(errno);
        FHead = std::exchange(FMemory, {});
    }
}

bool TSpillBuffer::Spill()
{
    if (!FFile)
        FFile.reset(std::tmpfile());
    if (!FFile)
        return false;
    std::setvbuf(FFile.get(), nullptr, _IONBF, 0);
    if (std::fwrite(FMemory.data(), 1, FMemory.size(), FFile.get()) != FMemory.size())
        return false;
    FInFile += FMemory.size();
    return true;
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
    if (FFile)
    {
        std::rewind(FFile.get());
        std::string Block(MostInMemory, '\0');
        for (std::size_t Size = 0; FInFile > 0; FInFile -= Size)
        {
            Size = std::fread(Block.data(), 1, std::min(Block.size(), FInFile), FFile.get());
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
    FFile.reset();
    FInFile = FDropped = 0;
}
