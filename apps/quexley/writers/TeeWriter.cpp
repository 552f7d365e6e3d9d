#include "apps/quexley/writers/TeeWriter.h"

void TTeeWriter::RunStarted(std::string_view Project, int Actions)
{
    for (const auto& Writer : FWriters)
        Writer->RunStarted(Project, Actions);
}

void TTeeWriter::ValidationError(const TActionIdentity& Action, std::string_view Label, std::string_view Message)
{
    for (const auto& Writer : FWriters)
        Writer->ValidationError(Action, Label, Message);
}

void TTeeWriter::ActionStarted(const TActionIdentity& Action)
{
    for (const auto& Writer : FWriters)
        Writer->ActionStarted(Action);
}

void TTeeWriter::Message(int Index, std::string_view Text)
{
    for (const auto& Writer : FWriters)
        Writer->Message(Index, Text);
}

void TTeeWriter::ExpansionError(int Index, std::string_view Label, std::string_view Text, std::string_view Reason)
{
    for (const auto& Writer : FWriters)
        Writer->ExpansionError(Index, Label, Text, Reason);
}

void TTeeWriter::ScriptError(int Index, std::string_view Script, int Line, std::string_view Reason)
{
    for (const auto& Writer : FWriters)
        Writer->ScriptError(Index, Script, Line, Reason);
}

void TTeeWriter::ProcessStarted(int Index, const TProcessStartEvent& Process)
{
    for (const auto& Writer : FWriters)
        Writer->ProcessStarted(Index, Process);
}

void TTeeWriter::Output(int Index, TQXOutputStream Stream, std::string_view Line)
{
    for (const auto& Writer : FWriters)
        Writer->Output(Index, Stream, Line);
}

void TTeeWriter::ProcessEnded(int Index, const TProcessEndEvent& End)
{
    for (const auto& Writer : FWriters)
        Writer->ProcessEnded(Index, End);
}

void TTeeWriter::ActionEnded(const TActionIdentity& Action, TActionResult Result, double Seconds,
                             std::string_view Reason)
{
    for (const auto& Writer : FWriters)
        Writer->ActionEnded(Action, Result, Seconds, Reason);
}

void TTeeWriter::RunEnded(TRunResult Result, const TRunTotals& Totals)
{
    for (const auto& Writer : FWriters)
        Writer->RunEnded(Result, Totals);
}

void TTeeWriter::Tick()
{
    for (const auto& Writer : FWriters)
        Writer->Tick();
}
