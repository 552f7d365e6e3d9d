#pragma once

#include "runtime/RunEvents.h"
#include "runtime/log/SecretMask.h"

/// Passes events on with every text cleaned: secrets replaced, malformed UTF-8 mended. A text that needs neither
/// is passed as it stands, without a copy.
class TCleanEvents final : public IRunEvents
{
public:
    explicit TCleanEvents(IRunEvents& Target) : FTarget(Target) {}
    [[nodiscard]] TSecretMask& Mask() { return FMask; }

    void Handle(const TRunEvent& Event) override;

private:
    IRunEvents& FTarget;
    TSecretMask FMask;
};
