#pragma once

#include "apps/quexley/Arguments.h"
#include "apps/quexley/writers/JUnitReport.h"
#include "apps/quexley/writers/Output.h"
#include "apps/quexley/writers/TeeWriter.h"
#include "apps/quexley/writers/WarningGate.h"

#include <memory>
#include <optional>
#include <string>

/// The log of a run: the format that was asked for on standard output, if asked for a copy as text in a file and a
/// report, and the host's own affairs on standard error.
class TRunLog
{
public:
    /// Throws EFileError for a file that cannot be written, EUsageError for one that may not be replaced.
    explicit TRunLog(const TArguments& Arguments);
    [[nodiscard]] IRunEvents& Events() { return FGate ? *FGate : static_cast<IRunEvents&>(FEvents); }
    /// Whether warnings made the run fail.
    [[nodiscard]] bool HasFailed() const { return FGate && FGate->HasFailed(); }
    /// Throws EClosedPipe or EFileError if not all of it could be written.
    void Finish();

private:
    [[nodiscard]] std::unique_ptr<IRunEvents> MakeWriter(const TArguments& Arguments);

    TStandardOutput FStandardOutput;
    std::string FLogFile;
    std::unique_ptr<TFileOutput> FCopy;
    TTeeWriter FEvents;
    TJUnitReport* FReport = nullptr; ///< one of FEvents
    std::optional<TWarningGate> FGate;
};
