#pragma once

#include "apps/quexley/Arguments.h"
#include "apps/quexley/writers/Output.h"
#include "apps/quexley/writers/TeeWriter.h"

#include <memory>
#include <string>

/// The log of a run: the format that was asked for on standard output, if asked for a copy as text in a file, and
/// the host's own affairs on standard error.
class TRunLog
{
public:
    /// Throws EFileError for a log file that cannot be written.
    explicit TRunLog(const TArguments& Arguments);
    [[nodiscard]] IRunEvents& Events() { return FEvents; }
    /// Throws EClosedPipe or EFileError if not all of it could be written.
    void Finish();

private:
    [[nodiscard]] std::unique_ptr<IRunEvents> MakeWriter(const TArguments& Arguments);

    TStandardOutput FStandardOutput;
    std::string FLogFile;
    std::unique_ptr<TFileOutput> FCopy;
    TTeeWriter FEvents;
};
