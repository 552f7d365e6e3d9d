#pragma once

#include "apps/quexley/writers/Output.h"
#include "apps/quexley/writers/SpillBuffer.h"
#include "apps/quexley/writers/ToolMessage.h"
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

    void RunStarted(std::string_view Project, int Actions) override;
    void ValidationError(const TActionIdentity& Action, std::string_view Label, std::string_view Message) override;
    void ActionStarted(const TActionIdentity& Action) override;
    void Message(int Index, std::string_view Text) override;
    void ExpansionError(int Index, std::string_view Label, std::string_view Text, std::string_view Reason) override;
    void ScriptError(int Index, std::string_view Script, int Line, std::string_view Reason) override;
    void ProcessStarted(int Index, const TProcessStartEvent& Process) override;
    void Output(int Index, TQXOutputStream Stream, std::string_view Line) override;
    void ProcessEnded(int Index, const TProcessEndEvent& End) override;
    void ActionEnded(const TActionIdentity& Action, TActionResult Result, double Seconds,
                     std::string_view Reason) override;
    void RunEnded(TRunResult Result, const TRunTotals& Totals) override;
    void Tick() override;

protected:
    /// What stands before and behind the lines of an action.
    virtual void WriteHeading(const std::string& Position, const TActionIdentity& Action);
    virtual void WriteEndOfLines() {}
    /// The line in which a tool reports an error or a warning.
    virtual void WriteToolMessage(const TToolMessage& Message, std::string_view Line);
    /// Without it lines are not looked into.
    [[nodiscard]] virtual bool WantsToolMessages() const { return FStyle.Colour; }

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

    void WriteActionLines(std::string_view Text, std::string_view Escape = {}, std::string_view Indent = "  ");
    void WriteRow(const TRow& Row, std::string_view Indent, std::size_t NameWidth);
    void WriteSummary();
    [[nodiscard]] std::string LastLine(TRunResult Result, const TRunTotals& Totals) const;
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
