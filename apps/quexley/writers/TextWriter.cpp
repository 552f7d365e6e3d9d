#include "apps/quexley/writers/TextWriter.h"

#include "apps/quexley/writers/EventTexts.h"
#include "platform/Console.h"
#include "platform/TextWidth.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace
{
constexpr std::string_view Bold = "\033[1m";
constexpr std::string_view Dim = "\033[2m";
constexpr std::string_view Red = "\033[31m";
constexpr std::string_view Green = "\033[32m";
constexpr std::string_view Yellow = "\033[33m";
constexpr std::string_view Plain = "\033[0m";
constexpr std::string_view EraseLine = "\r\033[K";

/// In the order of TLineKind.
constexpr std::array<std::string_view, 7> Escapes = {"", Bold, Dim, Green, Yellow, Red, ""};

struct TResultWord
{
    std::string_view Word;
    TLineKind Kind;
};
/// In the order of TActionResult.
constexpr std::array<TResultWord, 5> ResultWords = {{{"ok", TLineKind::Good},
                                                     {"FAILED", TLineKind::Error},
                                                     {"skipped", TLineKind::Warning},
                                                     {"ended", TLineKind::Error},
                                                     {"planned", TLineKind::Good}}};

/// A longer name sticks out of its column.
constexpr std::size_t WidestColumn = 60;

std::string FormatSeconds(double Seconds)
{
    if (Seconds < 60)
        return fmt::format("{:.1f} s", Seconds);
    const int Whole = static_cast<int>(Seconds);
    return fmt::format("{} min {:02} s", Whole / 60, Whole % 60);
}

bool IsNotable(TLineKind Kind)
{
    return Kind == TLineKind::Warning || Kind == TLineKind::Error || Kind == TLineKind::Mark;
}
} // namespace

template <TSeverity Severity> void TTextWriter::Write(const THostEvent<Severity>&)
{
    RemoveLiveLine();
    FOutput.Flush();
}

void TTextWriter::Handle(const TRunEvent& Event)
{
    FDigest.Handle(Event);
    std::visit([this](const auto& Known) { Write(Known); }, Event);
}

void TTextWriter::Write(const TRunStartedEvent& Event)
{
    FActions = Event.Actions;
}

void TTextWriter::Write(const TValidationErrorEvent& Event)
{
    WriteLine(fmt::format("{}: {}", OneLine(Event.Action), FindingText(Event)), TLineKind::Error);
}

void TTextWriter::Write(const TActionStartedEvent& Event)
{
    FPosition = fmt::format("[{}/{}]", ++FStarted, FActions);
    FRunning = OneLine(Event.Action);
    FType = Event.Type;
    if (!FStyle.Quiet)
        ShowHeading();
    FInAction = true;
    FHasNotable = false;
    FRunningSince = std::chrono::steady_clock::now();
    FOutput.Flush();
}

void TTextWriter::ShowHeading()
{
    WriteHeading(FPosition, FRunning, FType);
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
    WriteActionLines(ExpansionErrorText(Event), TLineKind::Error);
}

void TTextWriter::Write(const TScriptErrorEvent& Event)
{
    WriteActionLines(ScriptErrorText(Event), TLineKind::Error);
}

void TTextWriter::Write(const TProcessStartedEvent& Event)
{
    if (FStyle.Verbose || Event.DryRun)
    {
        WriteActionLines(fmt::format("{}: {}{}{}", Event.DryRun ? "would start" : "starting", Event.Executable,
                                     Event.Arguments.empty() ? "" : " ", Event.Arguments),
                         TLineKind::Detail);
        WriteActionLines(fmt::format("in folder: {}", Event.Folder), TLineKind::Detail);
    }
    if (Event.ResponseFile)
    {
        WriteActionLine("with response file:", TLineKind::Detail);
        WriteActionLines(*Event.ResponseFile, TLineKind::Detail, "    ");
    }
    FOutput.Flush();
}

void TTextWriter::Write(const TOutputEvent& Event)
{
    TLineKind Kind = TLineKind::Plain;
    if (Event.Severity)
        Kind = *Event.Severity == TSeverity::Error ? TLineKind::Error : TLineKind::Warning;
    WriteActionLine(Event.Text, Kind);
}

void TTextWriter::Write(const TProcessEndedEvent& Event)
{
    // The host says in a message why a tool was cut off.
    if (Event.ExitCode && (*Event.ExitCode != 0 || FStyle.Verbose))
        WriteActionLine(fmt::format("exit code {}", *Event.ExitCode), TLineKind::Detail);
    FOutput.Flush();
}

void TTextWriter::Write(const TActionEndedEvent& Event)
{
    const bool HasFailed = Event.Result == TActionResult::Failure || Event.Result == TActionResult::Terminated;
    const bool IsShown = !FStyle.Quiet || HasFailed || (FInAction && FHasNotable);
    if (FInAction)
        EndLines(IsShown, HasFailed);
    if (IsShown)
        WriteRow(FDigest.Actions().back(), "", 0);
    FOutput.Flush();
}

void TTextWriter::EndLines(bool IsShown, bool HasFailed)
{
    FInAction = false;
    RemoveLiveLine();
    if (FStyle.Quiet && IsShown)
    {
        ShowHeading();
        (HasFailed ? FHeldBack : FNotable).MoveTo(FOutput);
    }
    FHeldBack.Clear();
    FNotable.Clear();
    if (IsShown)
        WriteEndOfLines();
}

void TTextWriter::WriteRow(const TActionDigest& Action, std::string_view Indent, std::size_t NameWidth)
{
    const auto& [Word, Kind] = ResultWords[static_cast<std::size_t>(Action.Result)];
    const std::string_view Escape = EscapeOf(Kind);
    const bool IsSkipped = Action.Result == TActionResult::Skipped;
    const std::string Name = OneLine(Action.Name);
    const std::size_t Width = Texts::Width(Name);
    std::string Line = fmt::format("{}{}{:<7}{}  {}", Indent, Escape, Word, Escape.empty() ? "" : Plain, Name);
    if (!IsSkipped || !Action.Reason.empty())
        Line.append(NameWidth > Width ? NameWidth - Width : 0, ' ');
    if (!IsSkipped)
        Line += "  " + FormatSeconds(Action.Seconds);
    if (!Action.Reason.empty())
        Line += fmt::format("  ({})", OneLine(Action.Reason));
    WriteLine(Line);
}

void TTextWriter::Write(const TRunEndedEvent& Event)
{
    const bool HasDigest = !FStyle.Quiet && !FDigest.Actions().empty();
    if (HasDigest)
        WriteSummary();
    WriteLine(LastLine(Event), Event.Result == TRunResult::Success ? TLineKind::Good : TLineKind::Error);
    if (HasDigest)
        WriteFailures();
    FOutput.Flush();
}

void TTextWriter::WriteSummary()
{
    std::size_t Widest = 0;
    for (const TActionDigest& Action : FDigest.Actions())
        if (const std::size_t Width = Texts::Width(OneLine(Action.Name)); Width <= WidestColumn)
            Widest = std::max(Widest, Width);
    WriteLine("");
    WriteLine("Summary", TLineKind::Title);
    for (const TActionDigest& Action : FDigest.Actions())
        WriteRow(Action, "  ", Widest);
}

/// What the reader looks for stands last.
void TTextWriter::WriteFailures()
{
    bool HasTitle = false;
    for (const TActionDigest& Action : FDigest.Actions())
    {
        if (!Action.HasFailed())
            continue;
        if (!std::exchange(HasTitle, true))
        {
            WriteLine("");
            WriteLine("Failed", TLineKind::Title);
        }
        WriteFailure(Action);
    }
}

/// One that failed for the want of another's output has nothing of its own to be mended.
void TTextWriter::WriteFailure(const TActionDigest& Action)
{
    const std::string Name = "  " + OneLine(Action.Name);
    if (!Action.Reason.empty())
        return WriteLine(fmt::format("{}  ({})", Name, OneLine(Action.Reason)));
    WriteLine(Name);
    for (const std::string& Error : Action.FirstErrors)
        WriteLine("    " + Error, TLineKind::Error);
    if (const int Left = Action.Errors - static_cast<int>(Action.FirstErrors.size()); Left > 0)
        WriteLine("    ... and " + CountText(Left, "more error"));
}

std::string TTextWriter::LastLine(const TRunEndedEvent& Event) const
{
    if (Event.Result == TRunResult::Invalid)
        return CountText(FDigest.Findings(), "finding") + "; nothing was run";
    if (FActions == 0 && Event.Result == TRunResult::Success)
        return "no action to run";
    std::string Line =
        fmt::format("{}{} {}, {} failed, {} skipped in {}",
                    Event.Result == TRunResult::Terminated ? "ended early: " : "", Event.Succeeded,
                    Event.DryRun ? "planned" : "succeeded", Event.Failed, Event.Skipped, FormatSeconds(Event.Seconds));
    if (FDigest.Errors() + FDigest.Warnings() > 0)
        Line += fmt::format("; {}, {}", CountText(FDigest.Errors(), "error"), CountText(FDigest.Warnings(), "warning"));
    return Line;
}

std::string_view TTextWriter::EscapeOf(TLineKind Kind) const
{
    return FStyle.Colour ? Escapes[static_cast<std::size_t>(Kind)] : std::string_view();
}

void TTextWriter::WriteLine(std::string_view Line, TLineKind Kind)
{
    RemoveLiveLine();
    const std::string_view Escape = EscapeOf(Kind);
    FOutput.Append(Escape);
    FOutput.Append(Line);
    if (!Escape.empty())
        FOutput.Append(Plain);
    FOutput.EndLine();
}

void TTextWriter::WriteActionLine(std::string_view Line, TLineKind Kind, std::string_view Indent)
{
    if (!FInAction)
        return WriteLine(Line, Kind);
    if (!FStyle.Quiet)
    {
        RemoveLiveLine();
        FOutput.Append(Indent);
        return WriteLine(Line, Kind);
    }
    const std::string_view Escape = EscapeOf(Kind);
    for (const std::string_view Piece : {Indent, Escape, Line, Escape.empty() ? Escape : Plain, std::string_view("\n")})
    {
        FHeldBack.Append(Piece);
        if (IsNotable(Kind))
            FNotable.Append(Piece);
    }
    FHasNotable = FHasNotable || IsNotable(Kind);
}

void TTextWriter::WriteActionLines(std::string_view Text, TLineKind Kind, std::string_view Indent)
{
    ForEachLine(Text, [&](std::string_view Line) { WriteActionLine(Line, Kind, Indent); });
}

void TTextWriter::Write(const TTickEvent&)
{
    if (FStyle.LiveLine && FInAction)
    {
        const auto Seconds =
            std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - FRunningSince);
        const std::string Time = fmt::format("  {} s", Seconds.count());
        const std::size_t Room = static_cast<std::size_t>(Console::Width() - 1);
        RemoveLiveLine();
        FOutput.Append(Texts::FirstColumns(FPosition + ' ' + FRunning, Room - std::min(Room, Time.size())));
        FOutput.Append(Time);
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
