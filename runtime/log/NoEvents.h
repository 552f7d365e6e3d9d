#pragma once

#include "runtime/RunEvents.h"

/// Drops every event.
class TNoEvents final : public IRunEvents
{
public:
    void Handle(const TRunEvent& /*Event*/) override {}
};
