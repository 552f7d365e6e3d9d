#include "apps/quexley/writers/EventTexts.h"

#include <fmt/format.h>

std::string ScriptErrorText(const TScriptErrorEvent& Event)
{
    const std::string Line = Event.Line ? fmt::format(", line {}", *Event.Line) : "";
    return fmt::format("Script error in {}{}: {}", Event.Script, Line, Event.Reason);
}
