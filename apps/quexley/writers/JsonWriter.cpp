#include "apps/quexley/writers/JsonWriter.h"

#include <fmt/format.h>

#include <array>
#include <cstddef>

namespace
{
/// In the order of TActionResult and TRunResult.
constexpr std::array<std::string_view, 4> ActionResults = {"success", "failure", "skipped", "terminated"};
constexpr std::array<std::string_view, 4> RunResults = {"success", "failure", "invalid", "terminated"};

/// For each byte what stands behind the backslash in a JSON text, `u` for the long form, NUL for a byte that stands
/// for itself.
constexpr std::array<char, 256> MakeEscapes()
{
    std::array<char, 256> Escapes{};
    for (std::size_t Byte = 0; Byte < ' '; ++Byte)
        Escapes[Byte] = 'u';
    Escapes['\b'] = 'b';
    Escapes['\f'] = 'f';
    Escapes['\n'] = 'n';
    Escapes['\r'] = 'r';
    Escapes['\t'] = 't';
    Escapes['"'] = '"';
    Escapes['\\'] = '\\';
    return Escapes;
}
constexpr std::array<char, 256> Escapes = MakeEscapes();

void AppendEscaped(TOutput& Output, std::string_view Text)
{
    std::size_t Start = 0;
    for (std::size_t Position = 0; Position < Text.size(); ++Position)
    {
        const auto Byte = static_cast<unsigned char>(Text[Position]);
        const char Escape = Escapes[Byte];
        if (Escape == '\0')
            continue;
        Output.Append(Text.substr(Start, Position - Start));
        const std::array<char, 2> Short = {'\\', Escape};
        Output.Append({Short.data(), Short.size()});
        if (Escape == 'u')
            Output.Append(fmt::format("{:04x}", Byte));
        Start = Position + 1;
    }
    Output.Append(Text.substr(Start));
}
} // namespace

void TJsonWriter::Begin(std::string_view Event)
{
    FOutput.Append("{\"event\":\"");
    FOutput.Append(Event);
    FOutput.Append("\"");
}

void TJsonWriter::Begin(std::string_view Event, int Index)
{
    Begin(Event);
    Add("index", Index);
}

void TJsonWriter::AddName(std::string_view Member)
{
    FOutput.Append(",\"");
    FOutput.Append(Member);
    FOutput.Append("\":");
}

void TJsonWriter::Add(std::string_view Member, std::string_view Text)
{
    AddName(Member);
    FOutput.Append("\"");
    AppendEscaped(FOutput, Text);
    FOutput.Append("\"");
}

void TJsonWriter::Add(std::string_view Member, int Number)
{
    AddName(Member);
    const fmt::format_int Digits(Number);
    FOutput.Append({Digits.data(), Digits.size()});
}

void TJsonWriter::AddTrue(std::string_view Member)
{
    AddName(Member);
    FOutput.Append("true");
}

void TJsonWriter::AddSeconds(double Seconds)
{
    AddName("seconds");
    FOutput.Append(fmt::format("{:.3f}", Seconds));
}

void TJsonWriter::End()
{
    FOutput.Append("}");
    FOutput.EndLine();
}

void TJsonWriter::RunStarted(std::string_view Project, int Actions)
{
    Begin("run-started");
    Add("project", Project);
    Add("actions", Actions);
    End();
}

void TJsonWriter::ValidationError(const TActionIdentity& Action, std::string_view Label, std::string_view Message)
{
    Begin("validation-error", Action.Index);
    Add("type", Action.Type);
    Add("name", Action.Name);
    Add("label", Label);
    Add("message", Message);
    End();
}

void TJsonWriter::ActionStarted(const TActionIdentity& Action)
{
    Begin("action-started", Action.Index);
    Add("type", Action.Type);
    Add("name", Action.Name);
    End();
    FOutput.Flush();
}

void TJsonWriter::Message(int Index, std::string_view Text)
{
    Begin("message", Index);
    Add("text", Text);
    End();
}

void TJsonWriter::ExpansionError(int Index, std::string_view Label, std::string_view Text, std::string_view Reason)
{
    Begin("expansion-error", Index);
    Add("label", Label);
    Add("text", Text);
    Add("reason", Reason);
    End();
}

void TJsonWriter::ScriptError(int Index, std::string_view Script, int Line, std::string_view Reason)
{
    Begin("script-error", Index);
    Add("script", Script);
    Add("line", Line);
    Add("reason", Reason);
    End();
}

void TJsonWriter::ProcessStarted(int Index, const TProcessStartEvent& Process)
{
    Begin("process-started", Index);
    Add("executable", Process.Executable);
    Add("folder", Process.Folder);
    Add("arguments", Process.Arguments);
    if (Process.DryRun)
        AddTrue("dry_run");
    if (Process.ResponseFile)
        Add("response_file", *Process.ResponseFile);
    End();
    FOutput.Flush();
}

void TJsonWriter::Output(int Index, TQXOutputStream Stream, std::string_view Line)
{
    Begin("output", Index);
    Add("stream", Stream == TQXOutputStream::StdOut ? "stdout" : "stderr");
    Add("text", Line);
    End();
}

void TJsonWriter::ProcessEnded(int Index, const TProcessEndEvent& Process)
{
    Begin("process-ended", Index);
    if (Process.TimedOut)
        AddTrue("timed_out");
    else if (!Process.Signal.empty())
        Add("signal", Process.Signal);
    else
        Add("exit_code", Process.ExitCode);
    End();
    FOutput.Flush();
}

void TJsonWriter::ActionEnded(const TActionIdentity& Action, TActionResult Result, double Seconds, std::string_view)
{
    Begin("action-ended", Action.Index);
    Add("result", ActionResults[static_cast<std::size_t>(Result)]);
    AddSeconds(Seconds);
    End();
    FOutput.Flush();
}

void TJsonWriter::RunEnded(TRunResult Result, const TRunTotals& Totals)
{
    Begin("run-ended");
    Add("result", RunResults[static_cast<std::size_t>(Result)]);
    Add("succeeded", Totals.Succeeded);
    Add("failed", Totals.Failed);
    Add("skipped", Totals.Skipped);
    AddSeconds(Totals.Seconds);
    End();
    FOutput.Flush();
}
