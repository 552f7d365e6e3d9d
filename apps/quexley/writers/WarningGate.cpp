#include "apps/quexley/writers/WarningGate.h"

#include "apps/quexley/writers/EventTexts.h"

void TWarningGate::Handle(const TRunEvent& Event)
{
    const auto* Diagnostic = std::get_if<TDiagnosticEvent>(&Event);
    const auto* End = std::get_if<TRunEndedEvent>(&Event);
    if (std::holds_alternative<THostWarningEvent>(Event) || (Diagnostic && Diagnostic->Severity == TSeverity::Warning))
        ++FWarnings;
    if (!End || End->Result != TRunResult::Success || FWarnings == 0)
        return FTarget.Handle(Event);
    FHasFailed = true;
    FTarget.Handle(TMessageEvent{0, "The run failed : " + CountText(FWarnings, "warning") + ", and --fail-on-warning"});
    TRunEndedEvent Failed = *End;
    Failed.Result = TRunResult::Failure;
    FTarget.Handle(Failed);
}
