#include "apps/quexley/writers/JsonWriter.h"

#include "runtime/log/EventMembers.h"

#include <fmt/format.h>

#include <array>
#include <cstddef>

namespace
{
/// In the order of TActionResult and TRunResult.
constexpr std::array<std::string_view, 5> ActionResults = {"success", "failure", "skipped", "terminated", "planned"};
constexpr std::array<std::string_view, 5> RunResults = {"success", "failure", "invalid", "terminated", "failure"};

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

void TJsonWriter::Add(std::string_view Member, double Number)
{
    AddName(Member);
    FOutput.Append(fmt::format("{:.3f}", Number));
}

void TJsonWriter::Add(std::string_view Member, bool Value)
{
    if (!Value)
        return;
    AddName(Member);
    FOutput.Append("true");
}

void TJsonWriter::Add(std::string_view Member, TQXOutputStream Stream)
{
    Add(Member, Stream == TQXOutputStream::StdOut ? std::string_view("stdout") : std::string_view("stderr"));
}

void TJsonWriter::Add(std::string_view Member, TSeverity Severity)
{
    Add(Member, Severity == TSeverity::Error ? std::string_view("error") : std::string_view("warning"));
}

void TJsonWriter::Add(std::string_view Member, TActionResult Result)
{
    Add(Member, ActionResults[static_cast<std::size_t>(Result)]);
}

void TJsonWriter::Add(std::string_view Member, TRunResult Result)
{
    Add(Member, RunResults[static_cast<std::size_t>(Result)]);
}

template <typename TEvent> void TJsonWriter::Write(const TEvent& Event)
{
    FOutput.Append("{\"event\":\"");
    FOutput.Append(TEvent::Name);
    FOutput.Append("\"");
    ForEachMember(Event, [&](std::string_view Member, const auto& Value) {
        if (!Member.empty())
            Add(Member, Value);
    });
    FOutput.Append("}");
    FOutput.EndLine();
    // What comes line by line is flushed by the clock.
    constexpr bool IsLine = std::is_same_v<TEvent, TOutputEvent> || std::is_same_v<TEvent, TDiagnosticEvent> ||
                            std::is_same_v<TEvent, TMessageEvent>;
    if constexpr (!IsLine)
        FOutput.Flush();
}

void TJsonWriter::Handle(const TRunEvent& Event)
{
    if (std::holds_alternative<TTickEvent>(Event))
        return FOutput.Flush();
    std::visit([this](const auto& Known) { Write(Known); }, Event);
}
