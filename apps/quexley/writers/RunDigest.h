#pragma once

#include "runtime/RunEvents.h"

#include <string>
#include <string_view>
#include <vector>

/// What is left to say of an action when it has ended.
struct TActionDigest
{
    static constexpr std::size_t MostErrors = 5;

    TActionResult Result = TActionResult::Success;
    std::string Name;
    double Seconds = 0;
    std::string Reason;                   ///< why it was skipped, or what it failed for the want of
    std::string Failure;                  ///< of a failed one why, unless an error behind it says that already
    int Errors = 0;                       ///< that its tools or the host reported, and its failure
    std::vector<std::string> FirstErrors; ///< MostErrors of them at most

    [[nodiscard]] bool HasFailed() const { return Result == TActionResult::Failure; }
};

/// Counts what goes wrong in a run, and keeps the little of it that is told at the end.
class TRunDigest
{
public:
    void Handle(const TRunEvent& Event);
    /// Those that have ended or were skipped, in their order.
    [[nodiscard]] const std::vector<TActionDigest>& Actions() const { return FActions; }
    [[nodiscard]] int Errors() const { return FErrors; }
    [[nodiscard]] int Warnings() const { return FWarnings; }
    [[nodiscard]] int Findings() const { return FFindings; }

private:
    template <TSeverity Severity> void Take(const THostEvent<Severity>& Event);
    void Take(const TValidationErrorEvent& Event);
    void Take(const TActionStartedEvent& Event);
    void Take(const TMessageEvent& Event);
    void Take(const TExpansionErrorEvent& Event);
    void Take(const TScriptErrorEvent& Event);
    void Take(const TProcessStartedEvent& Event);
    void Take(const TOutputEvent& Event);
    void Take(const TProcessEndedEvent& Event);
    void Take(const TActionEndedEvent& Event);
    /// What there is nothing to keep of.
    template <typename TEvent> void Take(const TEvent&) {}
    void AddError(std::string_view Text);

    std::vector<TActionDigest> FActions;
    TActionDigest FRunning;
    std::string FReason;    ///< why the running action would fail, if it failed now
    bool FHasError = false; ///< whether an error of it would explain that
    int FErrors = 0;
    int FWarnings = 0;
    int FFindings = 0;
};
