#pragma once

#include "runtime/HostErrors.h"
#include "runtime/RunEvents.h"

#include <span>

/// Sends each finding as a THostErrorEvent or a THostWarningEvent.
template <typename TEvent> void SendFindings(std::span<const THostFinding> Findings, IRunEvents& Events)
{
    for (const THostFinding& Finding : Findings)
    {
        TEvent Event;
        Event.Message = Finding.Message;
        if (!Finding.File.empty())
            Event.File = Finding.File;
        if (Finding.Line > 0)
            Event.Line = Finding.Line;
        if (Finding.Column > 0)
            Event.Column = Finding.Column;
        Events.Handle(Event);
    }
}
