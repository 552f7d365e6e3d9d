#pragma once

#include "runtime/RunEvents.h"

/// Tells of the host's own affairs on standard error: `FILE:LINE:COLUMN: message`, as other programs that read
/// messages know it, or, without a line, under the program's name.
class TErrorStreamWriter final : public IRunEvents
{
public:
    void Handle(const TRunEvent& Event) override;

private:
    template <TSeverity Severity> static void Write(const THostEvent<Severity>& Event);
};
