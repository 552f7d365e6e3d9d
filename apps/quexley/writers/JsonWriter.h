#pragma once

#include "apps/quexley/writers/Output.h"
#include "runtime/RunEvents.h"

#include <string>
#include <string_view>

/// Writes a run for programs: one JSON object per event and line.
class TJsonWriter final : public IRunEvents
{
public:
    explicit TJsonWriter(TOutput& Output) : FOutput(Output) {}

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
    void Tick() override { FOutput.Flush(); }

private:
    // The members of an object, from its first to its end, are appended one by one: making a document of each line of
    // a tool would take longer than the tool.
    void Begin(std::string_view Event);
    void Begin(std::string_view Event, int Index);
    void Add(std::string_view Member, std::string_view Text);
    void Add(std::string_view Member, int Number);
    void AddTrue(std::string_view Member);
    void AddSeconds(double Seconds);
    void AddName(std::string_view Member);
    void End();

    TOutput& FOutput;
};
