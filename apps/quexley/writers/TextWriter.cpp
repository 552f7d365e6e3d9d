#include "apps/quexley/writers/TextWriter.h"

#include "apps/quexley/writers/EventTexts.h"
#include "platform/Console.h"
#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace
{
constexpr std::string_view Bold = "\033[1m";
constexpr std::string_view Dim = "\033[2m";
constexpr std::string_view Red = "\033[31m";
constexpr std::string_view Green = "\033[32m";
constexpr std::string_view Yellow = "\033[33m";
constexpr std::string_view Plain = "\033[0m";
constexpr std::string_view EraseLine = "\r\033[K";

struct TResultWord
{
    std::string_view Word;
    std::string_view Escape;
};
/// In the order of TActionResult.
constexpr std::array<TResultWord, 5> ResultWords = {
    {{"ok", Green}, {"FAILED", Red}, {"skipped", Yellow}, {"ended", Red}, {"planned", Green}}};

bool IsControl(char Character)
{
    return static_cast<unsigned char>(Character) < ' ';
}

/// A name as it fits into a line of ours.
std::string OneLine(std::string_view Text)
{
    std::string Result(Text);
    std::replace_if(Result.begin(), Result.end(), IsControl, ' ');
    return Result;
}

std::string FormatSeconds(double Seconds)
{
    if (Seconds < 60)
        return fmt::format("{:.1f} s", Seconds);
    const int Whole = static_cast<int>(Seconds);
    return fmt::format("{} min {:02} s", Whole / 60, Whole % 60);
}

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
} // namespace

template <TSeverity Severity> void TTextWriter::Write(const THostEvent<Severity>&)
{
    RemoveLiveLine();
    FOutput.Flush();
}

void TTextWriter::Handle(const TRunEvent& Event)
{
    std::visit([this](const auto& Known) { Write(Known); }, Event);
}

void TTextWriter::Write(const TRunStartedEvent& Event)
{
    FActions = Event.Actions;
}

void TTextWriter::Write(const TValidationErrorEvent& Event)
{
    ++FFindings;
    WriteLine(fmt::format("{}: {}: {}", OneLine(Event.Action), Event.Label, Event.Message), Red);
}

void TTextWriter::Write(const TActionStartedEvent& Event)
{
    FRunning = OneLine(Event.Action);
    WriteHeading(fmt::format("[{}/{}]", ++FStarted, FActions), FRunning, Event.Type);
    FInAction = true;
    FRunningSince = std::chrono::steady_clock::now();
    FOutput.Flush();
}

void TTextWriter::WriteHeading(std::string_view Position, std::string_view Action, std::string_view Type)
{
    if (FStyle.Colour)
        WriteLine(fmt::format("{}{} {}{} {}({}){}", Bold, Position, Action, Plain, Dim, Type, Plain));
    else
        WriteLine(fmt::format("{} {} ({})", Position, Action, Type));
}

void TTextWriter::Write(const TMessageEvent& Event)
{
    WriteActionLines(Event.Text);
}

void TTextWriter::Write(const TExpansionErrorEvent& Event)
{
    WriteActionLines(fmt::format("{}: \"{}\": {}", Event.Label, Event.Text, Event.Reason), Red);
}

void TTextWriter::Write(const TScriptErrorEvent& Event)
{
    // A quiet log has it too: the action goes on, without what the script was for.
    ForEachLine(ScriptErrorText(Event), [this](std::string_view Line) { WriteShownLine(Line, Red); });
}

void TTextWriter::Write(const TProcessStartedEvent& Event)
{
    if (FStyle.Verbose || Event.DryRun)
    {
        WriteActionLines(fmt::format("{}: {}{}{}", Event.DryRun ? "would start" : "starting", Event.Executable,
                                     Event.Arguments.empty() ? "" : " ", Event.Arguments),
                         Dim);
        WriteActionLines(fmt::format("in folder: {}", Event.Folder), Dim);
    }
    if (Event.ResponseFile)
    {
        WriteActionLine("with response file:", Dim);
        WriteActionLines(*Event.ResponseFile, Dim, "    ");
    }
    FOutput.Flush();
}

void TTextWriter::Write(const TOutputEvent& Event)
{
    std::string_view Escape;
    if (Event.Severity)
        Escape = *Event.Severity == TSeverity::Error ? Red : Yellow;
    WriteActionLine(Event.Text, Escape);
}

void TTextWriter::Write(const TProcessEndedEvent& Event)
{
    // The host says in a message why a tool was cut off.
    if (Event.ExitCode && (*Event.ExitCode != 0 || FStyle.Verbose))
        WriteActionLine(fmt::format("exit code {}", *Event.ExitCode), Dim);
    FOutput.Flush();
}

void TTextWriter::Write(const TActionEndedEvent& Event)
{
    if (FInAction)
    {
        RemoveLiveLine();
        if (Event.Result == TActionResult::Success || Event.Result == TActionResult::Planned)
            FHeldBack.Clear();
        else
            FHeldBack.MoveTo(FOutput);
        WriteEndOfLines();
    }
    FInAction = false;
    FRows.push_back({Event.Result, OneLine(Event.Action), Event.Seconds, OneLine(Event.Reason.value_or(""))});
    WriteRow(FRows.back(), "", 0);
    FOutput.Flush();
}

void TTextWriter::WriteRow(const TRow& Row, std::string_view Indent, std::size_t NameWidth)
{
    const auto& [Word, Escape] = ResultWords[static_cast<std::size_t>(Row.Result)];
    const bool Colour = FStyle.Colour;
    const std::size_t Length = Texts::CountCharacters(Row.Name);
    const std::string Padding(NameWidth > Length ? NameWidth - Length : 0, ' ');
    std::string Line =
        fmt::format("{}{}{:<7}{}  {}", Indent, Colour ? Escape : "", Word, Colour ? Plain : "", Row.Name);
    if (Row.Result != TActionResult::Skipped)
        Line += fmt::format("{}  {}", Padding, FormatSeconds(Row.Seconds));
    if (!Row.Reason.empty())
        Line += fmt::format("{}  ({})", Row.Result == TActionResult::Skipped ? Padding : "", Row.Reason);
    WriteLine(Line);
}

void TTextWriter::Write(const TRunEndedEvent& Event)
{
    if (!FRows.empty())
        WriteSummary();
    WriteLine(LastLine(Event), Event.Result == TRunResult::Success ? Green : Red);
    FOutput.Flush();
}

void TTextWriter::WriteSummary()
{
    std::size_t Width = 0;
    for (const TRow& Row : FRows)
        Width = std::max(Width, Texts::CountCharacters(Row.Name));
    WriteLine("");
    WriteLine("Summary", Bold);
    for (const TRow& Row : FRows)
        WriteRow(Row, "  ", Width);
}

std::string TTextWriter::LastLine(const TRunEndedEvent& Event) const
{
    if (Event.Result == TRunResult::Invalid)
        return fmt::format("{} finding{}; nothing was run", FFindings, FFindings == 1 ? "" : "s");
    if (FActions == 0 && Event.Result == TRunResult::Success)
        return "no action to run";
    return fmt::format("{}{} {}, {} failed, {} skipped in {}",
                       Event.Result == TRunResult::Terminated ? "ended early: " : "", Event.Succeeded,
                       Event.DryRun ? "planned" : "succeeded", Event.Failed, Event.Skipped,
                       FormatSeconds(Event.Seconds));
}

void TTextWriter::WriteLine(std::string_view Line, std::string_view Escape)
{
    RemoveLiveLine();
    const bool Colour = FStyle.Colour && !Escape.empty();
    if (Colour)
        FOutput.Append(Escape);
    FOutput.Append(Line);
    if (Colour)
        FOutput.Append(Plain);
    FOutput.EndLine();
}

void TTextWriter::WriteShownLine(std::string_view Line, std::string_view Escape, std::string_view Indent)
{
    RemoveLiveLine();
    if (FInAction)
        FOutput.Append(Indent);
    WriteLine(Line, Escape);
}

void TTextWriter::WriteActionLine(std::string_view Line, std::string_view Escape, std::string_view Indent)
{
    if (!FInAction || !FStyle.Quiet)
        return WriteShownLine(Line, Escape, Indent);
    const bool Colour = FStyle.Colour && !Escape.empty();
    for (const std::string_view Piece :
         {Indent, Colour ? Escape : "", Line, Colour ? Plain : "", std::string_view("\n")})
        FHeldBack.Append(Piece);
}

void TTextWriter::WriteActionLines(std::string_view Text, std::string_view Escape, std::string_view Indent)
{
    ForEachLine(Text, [&](std::string_view Line) { WriteActionLine(Line, Escape, Indent); });
}

void TTextWriter::Write(const TTickEvent&)
{
    if (FStyle.LiveLine && FInAction)
    {
        const auto Seconds =
            std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - FRunningSince);
        const std::string Text = fmt::format("  {}  {} s", FRunning, Seconds.count());
        RemoveLiveLine();
        FOutput.Append(Texts::FirstCharacters(Text, static_cast<std::size_t>(Console::Width() - 1)));
        FLiveLineShown = true;
    }
    FOutput.Flush();
}

void TTextWriter::RemoveLiveLine()
{
    if (!FLiveLineShown)
        return;
    FOutput.Append(EraseLine);
    FLiveLineShown = false;
}
