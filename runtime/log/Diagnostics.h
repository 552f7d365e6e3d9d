#pragma once

#include "runtime/RunEvents.h"

/// Passes events on, and behind a tool's line that reports an error or a warning what it says, taken apart. Stands
/// behind TCleanEvents, so that the parts of a line hide what the line hides.
class TDiagnostics final : public IRunEvents
{
public:
    explicit TDiagnostics(IRunEvents& Target) : FTarget(Target) {}

    void Handle(const TRunEvent& Event) override;

private:
    IRunEvents& FTarget;
};
