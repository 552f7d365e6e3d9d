// Texts that several formats have for an event.
#pragma once

#include "runtime/RunEvents.h"

#include <algorithm>
#include <string>
#include <string_view>

[[nodiscard]] std::string ExpansionErrorText(const TExpansionErrorEvent& Event);
[[nodiscard]] std::string ScriptErrorText(const TScriptErrorEvent& Event);
[[nodiscard]] std::string FindingText(const TValidationErrorEvent& Event);
/// "1 error", "2 errors".
[[nodiscard]] std::string CountText(int Count, std::string_view What);
/// A text as it fits into a line of ours: line ends and other control characters are blanks.
[[nodiscard]] std::string OneLine(std::string_view Text);

/// Calls Use with each line of a text; a line end at its end begins no further line.
template <typename TUse> void ForEachLine(std::string_view Text, TUse Use)
{
    for (std::size_t Start = 0; Start <= Text.size();)
    {
        const std::size_t End = std::min(Text.find('\n', Start), Text.size());
        std::string_view Line = Text.substr(Start, End - Start);
        if (Line.ends_with('\r'))
            Line.remove_suffix(1);
        if (End < Text.size() || !Line.empty() || Start == 0)
            Use(Line);
        Start = End + 1;
    }
}
