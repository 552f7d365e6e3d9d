#include "apps/quexley/writers/RunDigest.h"

#include "apps/quexley/writers/EventTexts.h"
#include "platform/Text.h"

#include <fmt/format.h>

#include <utility>

namespace
{
constexpr std::size_t LongestError = 1000;

std::string Shortened(std::string_view Text)
{
    return Text.size() > LongestError ? OneLine(Text.substr(0, Texts::CutLength(Text, LongestError))) + " ..."
                                      : OneLine(Text);
}
} // namespace

void TRunDigest::Handle(const TRunEvent& Event)
{
    std::visit([this](const auto& Known) { Take(Known); }, Event);
}

template <TSeverity Severity> void TRunDigest::Take(const THostEvent<Severity>&)
{
    ++(Severity == TSeverity::Error ? FErrors : FWarnings);
}

void TRunDigest::Take(const TValidationErrorEvent&)
{
    ++FFindings;
}

void TRunDigest::Take(const TActionStartedEvent&)
{
    FRunning = {};
    FReason.clear();
    FHasError = false;
}

void TRunDigest::Take(const TMessageEvent& Event)
{
    FReason = Event.Text;
}

void TRunDigest::Take(const TExpansionErrorEvent& Event)
{
    AddError(ExpansionErrorText(Event));
    FHasError = true;
}

void TRunDigest::Take(const TScriptErrorEvent& Event)
{
    // The action goes on after it and may fail for another reason.
    AddError(ScriptErrorText(Event));
}

void TRunDigest::Take(const TProcessStartedEvent&)
{
    FReason.clear();
}

void TRunDigest::Take(const TOutputEvent& Event)
{
    if (Event.Severity == TSeverity::Warning)
        ++FWarnings;
    if (Event.Severity != TSeverity::Error)
        return;
    AddError(Texts::Trim(Event.Text));
    FHasError = true;
}

void TRunDigest::Take(const TProcessEndedEvent& Event)
{
    if (Event.ExitCode.value_or(0) != 0 && !FHasError)
        FReason = fmt::format("exit code {}", *Event.ExitCode);
}

/// A failure counts as an error of its own, told by what the action said last, unless an error explains it.
void TRunDigest::Take(const TActionEndedEvent& Event)
{
    FRunning.Result = Event.Result;
    FRunning.Name = Event.Action;
    FRunning.Seconds = Event.Seconds;
    FRunning.Reason = Event.Reason.value_or("");
    const std::string Reason = Event.Reason ? FRunning.Reason : FReason;
    if (FRunning.HasFailed() && !(FHasError && Reason.empty()))
    {
        FRunning.Failure = Reason.empty() ? "The action failed." : "The action failed: " + Reason;
        AddError(FRunning.Failure);
    }
    FActions.push_back(std::exchange(FRunning, {}));
}

void TRunDigest::AddError(std::string_view Text)
{
    ++FErrors;
    ++FRunning.Errors;
    FReason.clear();
    if (FRunning.FirstErrors.size() < TActionDigest::MostErrors)
        FRunning.FirstErrors.push_back(Shortened(Text));
}
