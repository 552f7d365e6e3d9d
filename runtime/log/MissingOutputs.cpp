#include "runtime/log/MissingOutputs.h"

#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>

namespace
{
/// Longer lines are data.
constexpr std::size_t LongestLine = 8192;

bool IsNameCharacter(char Character)
{
    const auto Byte = static_cast<unsigned char>(Character);
    return Byte >= 0x80 || (Byte >= '0' && Byte <= '9') || (Byte >= 'a' && Byte <= 'z') || Byte == '_' || Byte == '-';
}

/// Whether a line, in lower case, holds a file's name by itself or behind its folder; a dot may end the sentence.
bool Names(std::string_view Line, std::string_view Name)
{
    for (std::size_t Place = Line.find(Name); Place != std::string_view::npos; Place = Line.find(Name, Place + 1))
    {
        const std::string_view Behind = Line.substr(Place + Name.size());
        const bool Begins = Place == 0 || !(IsNameCharacter(Line[Place - 1]) || Line[Place - 1] == '.');
        const bool Ends = Behind.empty() || !(IsNameCharacter(Behind[0]) ||
                                              (Behind[0] == '.' && Behind.size() > 1 && IsNameCharacter(Behind[1])));
        if (Begins && Ends)
            return true;
    }
    return false;
}
} // namespace

void TMissingOutputs::Add(const std::vector<std::string>& Files)
{
    for (const std::string& File : Files)
        if (const std::string Name = Texts::Lower(Paths::FileName(File)); !Name.empty())
            FOutputs.push_back({FEnded, File, Name});
}

void TMissingOutputs::Handle(const TRunEvent& Event)
{
    if (const auto* End = std::get_if<TActionEndedEvent>(&Event))
        return HandleEnd(*End);
    if (!FOutputs.empty())
        Look(Event);
    FTarget.Handle(Event);
}

void TMissingOutputs::Look(const TRunEvent& Event)
{
    if (std::holds_alternative<TActionStartedEvent>(Event))
        FMaker.clear();
    else if (const auto* Output = std::get_if<TOutputEvent>(&Event))
        Look(Output->Text);
    else if (const auto* Message = std::get_if<TMessageEvent>(&Event))
        Look(Message->Text);
}

void TMissingOutputs::Look(std::string_view Line)
{
    if (!FMaker.empty() || Line.size() > LongestLine)
        return;
    const std::string Lower = Texts::Lower(Line);
    const auto Output = std::find_if(FOutputs.begin(), FOutputs.end(), [&](const TOutput& Item) {
        return Names(Lower, Item.Name) && !Files::FileExists(Item.File);
    });
    if (Output != FOutputs.end())
        FMaker = Output->Action;
}

void TMissingOutputs::HandleEnd(TActionEndedEvent Event)
{
    FEnded = Event.Action;
    std::string Reason;
    if (Event.Result == TActionResult::Failure && !FMaker.empty())
    {
        Reason = fmt::format("needs the output of \"{}\"", FMaker);
        Event.Reason = Reason;
    }
    FTarget.Handle(Event);
}
