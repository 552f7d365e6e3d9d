#include "apps/quexley/writers/Output.h"

#include "platform/Console.h"
#include "platform/Files.h"
#include "platform/Processes.h"

#include <algorithm>
#include <cerrno>
#include <csignal>

namespace
{
constexpr std::size_t BufferSize = 128 * 1024;
constexpr auto FlushInterval = std::chrono::milliseconds(50);
constexpr int MostLinesBetween = 1024;

std::error_code LastError()
{
    return {errno, std::generic_category()};
}
} // namespace

TOutput::TOutput()
{
    FBuffer.reserve(BufferSize);
}

void TOutput::Append(std::string_view Text)
{
    if (Text.size() > BufferSize - FBuffer.size())
    {
        Flush();
        if (Text.size() > BufferSize)
        {
            if (!FFailure)
                FFailure = Write(Text);
            return;
        }
    }
    FBuffer.append(Text);
}

void TOutput::EndLine()
{
    Append("\n");
    if (--FLinesToClock == 0)
        FlushIfLongAgo();
}

void TOutput::FlushIfLongAgo()
{
    if (std::chrono::steady_clock::now() - FLastFlush >= FlushInterval)
        return Flush();
    FLinesBetween = std::min(FLinesBetween * 2, MostLinesBetween);
    FLinesToClock = FLinesBetween;
}

void TOutput::Flush()
{
    if (!FFailure && !FBuffer.empty())
        FFailure = Write(FBuffer);
    FBuffer.clear();
    FLastFlush = std::chrono::steady_clock::now();
    FLinesToClock = FLinesBetween = 1;
}

std::error_code TStandardOutput::Write(std::string_view Bytes)
{
    const std::error_code Error = Console::Write(Bytes);
    if (Error == std::errc::broken_pipe)
        Termination::Request(SIGTERM);
    return Error;
}

TFileOutput::TFileOutput(const std::string& FileName) : FFile(std::fopen(FileName.c_str(), "wb"), &std::fclose)
{
    if (!FFile)
        throw EFileError(FileName, LastError().message());
    std::setvbuf(FFile.get(), nullptr, _IONBF, 0);
}

std::error_code TFileOutput::Write(std::string_view Bytes)
{
    return std::fwrite(Bytes.data(), 1, Bytes.size(), FFile.get()) == Bytes.size() ? std::error_code() : LastError();
}
