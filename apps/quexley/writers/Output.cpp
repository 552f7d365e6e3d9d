#include "apps/quexley/writers/Output.h"

#include "platform/Processes.h"

#include <algorithm>
#include <csignal>

namespace
{
constexpr std::size_t BufferSize = 128 * 1024;
constexpr auto FlushInterval = std::chrono::milliseconds(50);
constexpr int MostLinesBetween = 1024;
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
    const std::error_code Error = FStream.Write(Bytes);
    if (Error == std::errc::broken_pipe || Error == std::errc::not_connected)
        Termination::Request(SIGTERM);
    return Error;
}
