#include "runtime/log/Diagnostics.h"

#include "runtime/log/ToolMessage.h"

#include <charconv>

namespace
{
/// The number that a tool wrote; none for no digits and for more of them than a place can have.
std::optional<int> Number(std::string_view Digits)
{
    int Value = 0;
    const auto [End, Error] = std::from_chars(Digits.data(), Digits.data() + Digits.size(), Value);
    return Error == std::errc() ? std::optional(Value) : std::nullopt;
}

TDiagnosticEvent Diagnostic(int Index, TSeverity Severity, const TToolMessage& Message)
{
    TDiagnosticEvent Event;
    Event.Index = Index;
    Event.Severity = Severity;
    if (!Message.File.empty())
        Event.File = Message.File;
    Event.Line = Number(Message.Line);
    Event.Column = Number(Message.Column);
    Event.Code = Message.Code;
    Event.Message = Message.Text;
    return Event;
}
} // namespace

void TDiagnostics::Handle(const TRunEvent& Event)
{
    const auto* Output = std::get_if<TOutputEvent>(&Event);
    const auto Message = Output ? ParseToolMessage(Output->Text) : std::nullopt;
    if (!Message)
        return FTarget.Handle(Event);
    TOutputEvent Marked = *Output;
    Marked.Severity = Message->IsError ? TSeverity::Error : TSeverity::Warning;
    FTarget.Handle(Marked);
    FTarget.Handle(Diagnostic(Marked.Index, *Marked.Severity, *Message));
}
