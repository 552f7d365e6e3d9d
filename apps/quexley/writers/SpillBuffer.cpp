#include "apps/quexley/writers/SpillBuffer.h"

#include "platform/Files.h"

#include <cerrno>
#include <system_error>

namespace
{
constexpr std::size_t MostInMemory = 256 * 1024;

[[noreturn]] void Fail()
{
    throw EFileError("temporary file for held back output", std::generic_category().message(errno));
}
} // namespace

TSpillBuffer::TSpillBuffer() : FFile(nullptr, &std::fclose) {}

void TSpillBuffer::Append(std::string_view Text)
{
    if (FMemory.size() + Text.size() > MostInMemory)
        Spill();
    FMemory.append(Text);
}

void TSpillBuffer::Spill()
{
    if (!FFile)
        FFile.reset(std::tmpfile());
    if (!FFile || std::fwrite(FMemory.data(), 1, FMemory.size(), FFile.get()) != FMemory.size())
        Fail();
    FMemory.clear();
}

void TSpillBuffer::MoveTo(TOutput& Output)
{
    if (FFile)
    {
        std::rewind(FFile.get());
        std::string Block(MostInMemory, '\0');
        while (const std::size_t Size = std::fread(Block.data(), 1, Block.size(), FFile.get()))
            Output.Append(std::string_view(Block).substr(0, Size));
    }
    Output.Append(FMemory);
    Clear();
}

void TSpillBuffer::Clear()
{
    FMemory.clear();
    FFile.reset();
}
