#pragma once

#include "runtime/RunEvents.h"

/// Passes the events of a run on; one that only warned fails, and says so before its end.
class TWarningGate final : public IRunEvents
{
public:
    explicit TWarningGate(IRunEvents& Target) : FTarget(Target) {}

    void Handle(const TRunEvent& Event) override;
    /// Whether a run that succeeded otherwise was made one that failed.
    [[nodiscard]] bool HasFailed() const { return FHasFailed; }

private:
    IRunEvents& FTarget;
    int FWarnings = 0;
    bool FHasFailed = false;
};
