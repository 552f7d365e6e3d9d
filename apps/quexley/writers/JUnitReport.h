#pragma once

#include "apps/quexley/writers/RunDigest.h"
#include "runtime/RunEvents.h"

#include <string>
#include <string_view>

/// Writes a run as JUnit's XML, which build systems read: a test case for each action. The file is replaced when the
/// report begins, with one that says that the run has not ended, and when it ends.
class TJUnitReport final : public IRunEvents
{
public:
    /// Throws EFileError for a file that cannot be written, and EUsageError for one that is no such report.
    explicit TJUnitReport(const std::string& File);

    void Handle(const TRunEvent& Event) override;
    /// Replaces the file. Throws EFileError.
    void Finish();

private:
    template <TSeverity Severity> void Take(const THostEvent<Severity>& Event);
    void Take(const TRunStartedEvent& Event);
    void Take(const TValidationErrorEvent& Event);
    void Take(const TActionStartedEvent& Event);
    void Take(const TMessageEvent& Event);
    void Take(const TExpansionErrorEvent& Event);
    void Take(const TScriptErrorEvent& Event);
    void Take(const TOutputEvent& Event);
    void Take(const TProcessEndedEvent& Event);
    void Take(const TActionEndedEvent& Event);
    void Take(const TRunEndedEvent& Event);
    /// What needs no place in it.
    template <typename TEvent> void Take(const TEvent&) {}
    void AddLine(std::string_view Line);
    /// Adds the test case that has been going on, with what Body says of its result.
    void EndCase(std::string_view Name, double Seconds, std::string_view Body);
    void EndFindings();
    [[nodiscard]] std::string Text(std::string_view Problem) const;

    std::string FFile;
    TRunDigest FDigest;
    std::string FProject;
    std::string FCases;    ///< those that have ended, as XML
    std::string FLines;    ///< of the action that goes on, or of none
    std::string FDropped;  ///< says that lines before them were left out
    std::string FInvalid;  ///< name of the action whose findings come
    std::string FFindings; ///< of it, as XML
    std::string FRunLines; ///< lines of no action
    std::string FHostErrors;
    bool FInAction = false;
    bool FHasEnded = false;
    int FTests = 0;
    int FFailures = 0;
    int FErrors = 0;
    int FSkipped = 0;
    double FSeconds = 0;
};
