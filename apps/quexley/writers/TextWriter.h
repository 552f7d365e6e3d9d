#pragma once

#include "apps/quexley/writers/Output.h"
#include "apps/quexley/writers/RunDigest.h"
#include "apps/quexley/writers/SpillBuffer.h"
#include "runtime/RunEvents.h"

#include <chrono>
#include <string>
#include <string_view>

/// How much the text log says, and how.
struct TTextStyle
{
    bool Colour = false;
    bool LiveLine = false; ///< the running action and its time, at the bottom of a terminal
    bool Quiet = false;    ///< only what failed or warned, and one line of totals
    bool Verbose = false;  ///< every process start
};

/// What a line is to its reader. Warnings, errors and marks stand in quiet logs too; a mark is for a program that reads
/// the log.
enum class TLineKind { Plain, Title, Detail, Good, Warning, Error, Mark };

/// Writes a run for people: a heading and a result for each action with its lines between them, and a digest at the
/// end.
class TTextWriter : public IRunEvents
{
public:
    TTextWriter(TOutput& Output, const TTextStyle& Style) : FOutput(Output), FStyle(Style) {}

    void Handle(const TRunEvent& Event) override;

protected:
    /// What stands before and behind the lines of an action.
    virtual void WriteHeading(std::string_view Position, std::string_view Action, std::string_view Type);
    virtual void WriteEndOfLines() {}

    void WriteLine(std::string_view Line, TLineKind Kind = TLineKind::Plain);
    /// Writes a line of the running action, or holds it back in a quiet run.
    void WriteActionLine(std::string_view Line, TLineKind Kind = TLineKind::Plain, std::string_view Indent = "  ");
    [[nodiscard]] const TRunDigest& Digest() const { return FDigest; }

private:
    /// Standard error tells of the host's own affairs.
    template <TSeverity Severity> void Write(const THostEvent<Severity>& Event);
    void Write(const TRunStartedEvent& Event);
    void Write(const TValidationErrorEvent& Event);
    void Write(const TActionStartedEvent& Event);
    void Write(const TMessageEvent& Event);
    void Write(const TExpansionErrorEvent& Event);
    void Write(const TScriptErrorEvent& Event);
    void Write(const TProcessStartedEvent& Event);
    void Write(const TOutputEvent& Event);
    void Write(const TDiagnosticEvent&) {}
    void Write(const TProcessEndedEvent& Event);
    void Write(const TActionEndedEvent& Event);
    void Write(const TRunEndedEvent& Event);
    void Write(const TTickEvent& Event);

    [[nodiscard]] std::string_view EscapeOf(TLineKind Kind) const;
    void ShowHeading();
    void WriteActionLines(std::string_view Text, TLineKind Kind = TLineKind::Plain, std::string_view Indent = "  ");
    /// Ends the lines of an action; in a quiet run those come that are wanted after all.
    void EndLines(bool IsShown, bool HasFailed);
    void WriteRow(const TActionDigest& Action, std::string_view Indent, std::size_t NameWidth);
    void WriteSummary();
    void WriteFailures();
    void WriteFailure(const TActionDigest& Action);
    [[nodiscard]] std::string LastLine(const TRunEndedEvent& Event) const;
    void RemoveLiveLine();

    TOutput& FOutput;
    TTextStyle FStyle;
    TRunDigest FDigest;
    TSpillBuffer FHeldBack; ///< the running action's lines in a quiet run
    TSpillBuffer FNotable;  ///< those of them that stand in a quiet log also if it succeeds
    bool FHasNotable = false;
    int FActions = 0;
    int FStarted = 0;
    bool FInAction = false;
    bool FLiveLineShown = false;
    std::string FPosition; ///< of the running action, "[2/3]"
    std::string FRunning;  ///< its name
    std::string FType;
    std::chrono::steady_clock::time_point FRunningSince;
};
