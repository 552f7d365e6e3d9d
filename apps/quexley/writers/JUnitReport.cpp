#include "apps/quexley/writers/JUnitReport.h"

#include "apps/quexley/writers/Escapes.h"
#include "apps/quexley/writers/EventTexts.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "runtime/HostErrors.h"

#include <fmt/format.h>

#include <utility>

namespace
{
/// Of an action's lines the last ones are kept: a tool may write more than fits into memory.
constexpr std::size_t MostLines = 64 * 1024;

/// What XML cannot hold is U+FFFD.
constexpr TEscapes MakeXmlEscapes()
{
    TEscapes Result = WithEscapes({}, {{'<', "&lt;"}, {'>', "&gt;"}, {'&', "&amp;"}, {'"', "&quot;"}});
    for (std::size_t Byte = 0; Byte < ' '; ++Byte)
        if (Byte != '\t' && Byte != '\n')
            Result[Byte] = "\xEF\xBF\xBD";
    return Result;
}
constexpr TEscapes InText = MakeXmlEscapes();
constexpr TEscapes InAttribute = WithEscapes(InText, {{'\t', "&#9;"}, {'\n', "&#10;"}});

std::string Escaped(std::string_view Text, const TEscapes& Escapes = InAttribute)
{
    std::string Result;
    AppendEscaped(Result, Text, Escapes);
    for (const std::string_view Forbidden : {"\xEF\xBF\xBE", "\xEF\xBF\xBF"})
        if (Result.find(Forbidden) != std::string::npos)
            Result = Texts::Replace(Result, Forbidden, "\xEF\xBF\xBD");
    return Result;
}

/// An element that says what became of a test case, its message first and Text in it.
std::string Problem(std::string_view Element, std::string_view Message, std::string_view Text = {})
{
    const std::string Start = fmt::format("      <{} message=\"{}\"", Element, Escaped(Message));
    if (Text.empty())
        return Start + "/>\n";
    return fmt::format("{}>{}</{}>\n", Start, Escaped(Text, InText), Element);
}

std::string Lines(std::string_view Element, std::string_view Indent, std::string_view Text)
{
    return Text.empty() ? "" : fmt::format("{0}<{1}>{2}</{1}>\n", Indent, Element, Escaped(Text, InText));
}

std::string Joined(const TActionDigest& Action)
{
    std::string Result = fmt::format("{}\n", fmt::join(Action.FirstErrors, "\n"));
    if (const int Left = Action.Errors - static_cast<int>(Action.FirstErrors.size()); Left > 0)
        Result += "... and " + CountText(Left, "more error") + "\n";
    return Result;
}

/// An empty file, as one makes to have its name, is no loss.
bool IsReport(const std::string& File)
{
    const std::string Bytes = Files::Read(File);
    return Bytes.empty() || std::string_view(Bytes).substr(0, 4096).find("<testsuite") != std::string::npos;
}
} // namespace

TJUnitReport::TJUnitReport(const std::string& File) : FFile(Paths::Expand(File, Files::CurrentFolder()))
{
    if (Files::FileExists(FFile) && !IsReport(FFile))
        throw EUsageError(fmt::format("--report would replace {}, which is no report", File));
    Files::ReplaceContent(FFile, Text("The run has not ended."), Files::TFlush::No);
}

void TJUnitReport::Handle(const TRunEvent& Event)
{
    FDigest.Handle(Event);
    std::visit([this](const auto& Known) { Take(Known); }, Event);
}

void TJUnitReport::Finish()
{
    EndFindings();
    Files::ReplaceContent(FFile, Text(FHasEnded ? "" : "The run could not go on."), Files::TFlush::No);
}

template <TSeverity Severity> void TJUnitReport::Take(const THostEvent<Severity>& Event)
{
    const THostFinding Finding{.File = std::string(Event.File.value_or("")),
                               .Line = Event.Line.value_or(0),
                               .Column = Event.Column.value_or(0),
                               .Message = std::string(Event.Message)};
    if (Severity == TSeverity::Error)
        FHostErrors += Problem("error", Finding.Text());
    else
        FRunLines += "warning: " + Finding.Text() + "\n";
}

void TJUnitReport::Take(const TRunStartedEvent& Event)
{
    FProject = Event.Project;
}

void TJUnitReport::Take(const TValidationErrorEvent& Event)
{
    if (FInvalid != Event.Action)
        EndFindings();
    FInvalid = Event.Action;
    FFindings += Problem("error", FindingText(Event), fmt::format("{}:{}:{}", Event.File, Event.Line, Event.Column));
}

void TJUnitReport::Take(const TActionStartedEvent&)
{
    FInAction = true;
    FLines.clear();
    FDropped.clear();
}

void TJUnitReport::Take(const TMessageEvent& Event)
{
    AddLine(Event.Text);
}

void TJUnitReport::Take(const TExpansionErrorEvent& Event)
{
    AddLine(ExpansionErrorText(Event));
}

void TJUnitReport::Take(const TScriptErrorEvent& Event)
{
    AddLine(ScriptErrorText(Event));
}

void TJUnitReport::Take(const TOutputEvent& Event)
{
    AddLine(Event.Text);
}

void TJUnitReport::Take(const TProcessEndedEvent& Event)
{
    if (Event.ExitCode.value_or(0) != 0)
        AddLine(fmt::format("exit code {}", *Event.ExitCode));
}

void TJUnitReport::Take(const TActionEndedEvent& Event)
{
    const TActionDigest& Action = FDigest.Actions().back();
    std::string Result;
    switch (Event.Result)
    {
    case TActionResult::Success:
    case TActionResult::Planned:
        break;
    case TActionResult::Failure:
        ++FFailures;
        Result = Problem("failure", Action.Reason.empty() ? Action.FirstErrors.front() : Action.Reason, Joined(Action));
        break;
    case TActionResult::Terminated:
        ++FErrors;
        Result = Problem("error", "The run was ended.");
        break;
    case TActionResult::Skipped:
        ++FSkipped;
        Result = Problem("skipped", Action.Reason);
        break;
    }
    EndCase(Event.Action, Event.Seconds, Result + Lines("system-out", "      ", FDropped + FLines));
    FLines.clear();
    FInAction = false;
}

void TJUnitReport::Take(const TRunEndedEvent& Event)
{
    FSeconds = Event.Seconds;
    FHasEnded = true;
}

void TJUnitReport::AddLine(std::string_view Line)
{
    std::string& Lines = FInAction ? FLines : FRunLines;
    Lines.append(Line).append("\n");
    if (Lines.size() <= MostLines)
        return;
    const std::size_t Most = Lines.size() - MostLines / 2;
    const std::size_t End = Lines.find('\n', Most) + 1;
    Lines.erase(0, End < Lines.size() ? End : Texts::CutLength(Lines, Most));
    FDropped = "[what came before was left out]\n";
}

void TJUnitReport::EndCase(std::string_view Name, double Seconds, std::string_view Body)
{
    ++FTests;
    FCases += fmt::format("    <testcase classname=\"{}\" name=\"{}\" time=\"{:.3f}\"", Escaped(FProject),
                          Escaped(Name), Seconds);
    FCases += Body.empty() ? "/>\n" : fmt::format(">\n{}    </testcase>\n", Body);
}

void TJUnitReport::EndFindings()
{
    if (FFindings.empty())
        return;
    ++FErrors;
    EndCase(FInvalid, 0, std::exchange(FFindings, {}));
}

std::string TJUnitReport::Text(std::string_view Problem) const
{
    const int HostCases = FHostErrors.empty() ? 0 : 1;
    const std::string Totals =
        fmt::format("name=\"{}\" tests=\"{}\" failures=\"{}\" errors=\"{}\" skipped=\"{}\" time=\"{:.3f}\"",
                    Escaped(FProject), FTests + HostCases, FFailures, FErrors + HostCases, FSkipped, FSeconds);
    std::string Result =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites>\n  <testsuite " + Totals + ">\n" + FCases;
    if (HostCases > 0)
        Result += "    <testcase classname=\"quexley\" name=\"quexley\" time=\"0.000\">\n" + FHostErrors +
                  "    </testcase>\n";
    return Result + Lines("system-out", "    ", FRunLines) + Lines("system-err", "    ", Problem) +
           "  </testsuite>\n</testsuites>\n";
}
