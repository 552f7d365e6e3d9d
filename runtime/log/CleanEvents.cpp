#include "runtime/log/CleanEvents.h"

#include "platform/Text.h"

TCleanEvents::TCleanText::TCleanText(const TSecretMask& Mask, std::string_view Text) : FText(Text)
{
    if (!Mask.IsEmpty())
        FText = Mask.Apply(Text, FBuffer);
    if (Text::IsAscii(FText) || Text::IsValidUtf8(FText))
        return;
    FBuffer = Text::MakeValidUtf8(FText);
    FText = FBuffer;
}

TActionIdentity TCleanEvents::Clean(const TActionIdentity& Action) const
{
    return {Action.Index, Action.Type, Copy(Action.Name)};
}

void TCleanEvents::RunStarted(std::string_view Project, int Actions)
{
    FTarget.RunStarted(Clean(Project), Actions);
}

void TCleanEvents::ValidationError(const TActionIdentity& Action, std::string_view Label, std::string_view Message)
{
    FTarget.ValidationError(Clean(Action), Clean(Label), Clean(Message));
}

void TCleanEvents::ActionStarted(const TActionIdentity& Action)
{
    FTarget.ActionStarted(Clean(Action));
}

void TCleanEvents::Message(int Index, std::string_view Text)
{
    FTarget.Message(Index, Clean(Text));
}

void TCleanEvents::ExpansionError(int Index, std::string_view Label, std::string_view Text, std::string_view Reason)
{
    FTarget.ExpansionError(Index, Clean(Label), Clean(Text), Clean(Reason));
}

void TCleanEvents::ScriptError(int Index, std::string_view Script, int Line, std::string_view Reason)
{
    FTarget.ScriptError(Index, Clean(Script), Line, Clean(Reason));
}

void TCleanEvents::ProcessStarted(int Index, const TProcessStartEvent& Process)
{
    TProcessStartEvent Event{
        Copy(Process.Executable), Copy(Process.Folder), Copy(Process.Arguments), Process.DryRun, {}};
    if (Process.ResponseFile)
        Event.ResponseFile = Copy(*Process.ResponseFile);
    FTarget.ProcessStarted(Index, Event);
}

void TCleanEvents::Output(int Index, TQXOutputStream Stream, std::string_view Line)
{
    FTarget.Output(Index, Stream, Clean(Line));
}

void TCleanEvents::ActionEnded(const TActionIdentity& Action, TActionResult Result, double Seconds,
                               std::string_view Reason)
{
    FTarget.ActionEnded(Clean(Action), Result, Seconds, Clean(Reason));
}
