#pragma once

#include "platform/Console.h"

#include <chrono>
#include <string>
#include <string_view>
#include <system_error>

/// A buffer in front of a place for bytes. Tools write millions of lines: a line costs a copy and a few comparisons,
/// and still a slow tool's line is seen when it comes. The first failure to write is remembered, and what follows
/// is dropped.
class TOutput
{
public:
    TOutput();
    virtual ~TOutput() = default;
    TOutput(const TOutput&) = delete;
    TOutput& operator=(const TOutput&) = delete;

    void Append(std::string_view Text);
    /// Appends a line end, and flushes if the last flush was a while ago.
    void EndLine();
    void Flush();
    /// Why a write failed.
    [[nodiscard]] const std::error_code& Failure() const { return FFailure; }

private:
    virtual std::error_code Write(std::string_view Bytes) = 0;
    void FlushIfLongAgo();

    std::string FBuffer;
    std::error_code FFailure;
    std::chrono::steady_clock::time_point FLastFlush;
    int FLinesToClock = 1; ///< lines until the clock is looked at again
    int FLinesBetween = 1; ///< what it was set to: twice as many each time, from one after a flush
};

/// Standard output. When nobody reads it any longer, the end of the run is requested.
class TStandardOutput final : public TOutput
{
    std::error_code Write(std::string_view Bytes) override;
    TByteOutput FStream = TByteOutput::StandardOutput();
};

/// A file that is replaced.
class TFileOutput final : public TOutput
{
public:
    /// Throws EFileError.
    explicit TFileOutput(const std::string& FileName) : FStream(TByteOutput::File(FileName)) {}

private:
    std::error_code Write(std::string_view Bytes) override { return FStream.Write(Bytes); }
    TByteOutput FStream;
};
