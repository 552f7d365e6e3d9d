#pragma once

#include "apps/quexley/writers/Output.h"
#include "apps/quexley/writers/SpillBuffer.h"
#include "runtime/RunEvents.h"

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

/// How much the text log says, and how.
struct TTextStyle
{
    bool Colour = false;
    bool LiveLine = false; ///< the running action and its time, at the bottom of a terminal
    bool Quiet = false;    ///< an action's lines only if it failed
    bool Verbose = false;  ///< every process start
};

/// Writes a run for people: a heading and a result for each action with its lines between them, and a summary.
class TTextWriter : public IRunEvents
{
public:
    TTextWriter(TOutput& Output, const TTextStyle& Style) : FOutput(Output), FStyle(Style) {}

    void Handle(const TRunEvent& Event) override;

protected:
    /// What stands before and behind the lines of an action.
    virtual void WriteHeading(std::string_view Position, std::string_view Action, std::string_view Type);
    virtual void WriteEndOfLines() {}

    /// Writes a line; Escape is its colour on terminals that have some.
    void WriteLine(std::string_view Line, std::string_view Escape = {});
    /// Writes a line of the running action, or holds it back in a quiet run.
    void WriteActionLine(std::string_view Line, std::string_view Escape = {}, std::string_view Indent = "  ");

private:
    struct TRow
    {
        TActionResult Result;
        std::string Name;
        double Seconds;
        std::string Reason;
    };

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

    /// A line of an action that a quiet log has as well.
    void WriteShownLine(std::string_view Line, std::string_view Escape, std::string_view Indent = "  ");
    void WriteActionLines(std::string_view Text, std::string_view Escape = {}, std::string_view Indent = "  ");
    void WriteRow(const TRow& Row, std::string_view Indent, std::size_t NameWidth);
    void WriteSummary();
    [[nodiscard]] std::string LastLine(const TRunEndedEvent& Event) const;
    void RemoveLiveLine();

    TOutput& FOutput;
    TTextStyle FStyle;
    TSpillBuffer FHeldBack;
    std::vector<TRow> FRows;
    int FActions = 0;
    int FStarted = 0;
    int FFindings = 0;
    bool FInAction = false;
    bool FLiveLineShown = false;
    std::string FRunning; ///< name of the running action
    std::chrono::steady_clock::time_point FRunningSince;
};
