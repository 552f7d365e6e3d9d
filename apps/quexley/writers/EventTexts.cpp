#include "apps/quexley/writers/EventTexts.h"

#include <fmt/format.h>

std::string ExpansionErrorText(const TExpansionErrorEvent& Event)
{
    return fmt::format("{}: \"{}\": {}", Event.Label, Event.Text, Event.Reason);
}

std::string ScriptErrorText(const TScriptErrorEvent& Event)
{
    const std::string Line = Event.Line ? fmt::format(", line {}", *Event.Line) : "";
    return fmt::format("Script error in {}{}: {}", Event.Script, Line, Event.Reason);
}

std::string FindingText(const TValidationErrorEvent& Event)
{
    return fmt::format("{}: {}", Event.Label, Event.Message);
}

std::string CountText(int Count, std::string_view What)
{
    return fmt::format("{} {}{}", Count, What, Count == 1 ? "" : "s");
}

std::string OneLine(std::string_view Text)
{
    std::string Result(Text);
    std::replace_if(
        Result.begin(), Result.end(), [](char Character) { return static_cast<unsigned char>(Character) < ' '; }, ' ');
    return Result;
}
