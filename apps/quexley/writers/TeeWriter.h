#pragma once

#include "runtime/RunEvents.h"

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

/// Hands each event to several writers, in the order in which they were added.
class TTeeWriter final : public IRunEvents
{
public:
    void Add(std::unique_ptr<IRunEvents> Writer) { FWriters.push_back(std::move(Writer)); }

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

private:
    std::vector<std::unique_ptr<IRunEvents>> FWriters;
};
