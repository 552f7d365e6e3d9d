#include "apps/quexley/writers/AnnotatingWriter.h"

#include "apps/quexley/writers/EventTexts.h"
#include "platform/Files.h"
#include "platform/Paths.h"

#include <fmt/format.h>

#include <utility>

TAnnotatingWriter::TAnnotatingWriter(TOutput& Output, const TTextStyle& Style, std::string Root)
    : TTextWriter(Output, Style), FRoot(std::move(Root)), FStartFolder(Files::CurrentFolder())
{}

void TAnnotatingWriter::Handle(const TRunEvent& Event)
{
    TTextWriter::Handle(Event);
    std::visit([this](const auto& Known) { Annotate(Known); }, Event);
}

void TAnnotatingWriter::WriteHeading(std::string_view Position, std::string_view Action, std::string_view Type)
{
    FGroup = fmt::format("{} {} ({})", Position, Action, Type);
    FLine.clear();
    AppendGroupBegin(FLine, FGroup);
    WriteLine(FLine);
}

void TAnnotatingWriter::WriteEndOfLines()
{
    FLine.clear();
    AppendGroupEnd(FLine, FGroup);
    WriteLine(FLine);
}

template <TSeverity Severity> void TAnnotatingWriter::Annotate(const THostEvent<Severity>& Event)
{
    const std::string File = FromRoot(Event.File.value_or(""), FStartFolder);
    Write({.Severity = Severity, .Text = Event.Message, .File = File, .Line = Event.Line, .Column = Event.Column});
}

void TAnnotatingWriter::Annotate(const TValidationErrorEvent& Event)
{
    const std::string Text = fmt::format("{}: {}", Event.Label, Event.Message);
    const std::string File = FromRoot(Event.File, FStartFolder);
    TAnnotation Annotation{.Action = Event.Action, .Text = Text};
    if (Event.Line > 0)
    {
        Annotation.File = File;
        Annotation.Line = Event.Line;
        Annotation.Column = Event.Column;
    }
    Write(Annotation);
}

void TAnnotatingWriter::Annotate(const TActionStartedEvent& Event)
{
    FAction = Event.Action;
    FReason.clear();
    FHasError = false;
}

void TAnnotatingWriter::Annotate(const TMessageEvent& Event)
{
    FReason = Event.Text;
}

void TAnnotatingWriter::Annotate(const TExpansionErrorEvent& Event)
{
    const std::string Text = fmt::format("{}: \"{}\": {}", Event.Label, Event.Text, Event.Reason);
    Write({.Action = FAction, .Text = Text});
}

void TAnnotatingWriter::Annotate(const TScriptErrorEvent& Event)
{
    // The action goes on after it and may fail for another reason.
    const bool HadError = FHasError;
    const std::string Text = ScriptErrorText(Event);
    Write({.Action = FAction, .Text = Text});
    FHasError = HadError;
}

void TAnnotatingWriter::Annotate(const TProcessStartedEvent& Event)
{
    FProcessFolder = Paths::Expand(Event.Folder, Files::CurrentFolder());
    FToolFiles.clear();
    FReason.clear();
}

void TAnnotatingWriter::Annotate(const TDiagnosticEvent& Event)
{
    Write({.Severity = Event.Severity,
           .Action = FAction,
           .Code = Event.Code,
           .Text = Event.Message,
           .File = ToolFile(Event.File.value_or("")),
           .Line = Event.Line,
           .Column = Event.Column});
}

void TAnnotatingWriter::Annotate(const TProcessEndedEvent& Event)
{
    if (Event.ExitCode.value_or(0) != 0 && !FHasError)
        FReason = fmt::format("exit code {}", *Event.ExitCode);
}

/// A failure is marked with what the action said last, unless an error behind it is marked already.
void TAnnotatingWriter::Annotate(const TActionEndedEvent& Event)
{
    if (Event.Result != TActionResult::Failure || (FHasError && FReason.empty()))
        return;
    const std::string Text = FReason.empty() ? "The action failed." : "The action failed: " + FReason;
    Write({.Action = Event.Action, .Text = Text});
}

void TAnnotatingWriter::Write(const TAnnotation& Annotation)
{
    FLine.clear();
    AppendAnnotation(FLine, Annotation);
    WriteActionLine(FLine, {}, {});
    if (Annotation.Severity == TSeverity::Warning)
        return;
    FHasError = true;
    FReason.clear();
}

/// What a tool names and where it looked for it may differ; only a file that is there is put another way.
std::string TAnnotatingWriter::FromRoot(std::string_view File, const std::string& Folder) const
{
    const std::string Found = File.empty() ? std::string() : Files::Find(Paths::Expand(File, Folder));
    if (Found.empty())
        return std::string(File);
    const std::string Relative = Paths::RelativeTo(Found, FRoot);
    return Relative.starts_with("..") ? Found : Relative;
}

std::string_view TAnnotatingWriter::ToolFile(std::string_view Name)
{
    constexpr std::size_t MostKnown = 10'000;
    if (Name.empty())
        return {};
    const auto Known = FToolFiles.find(Name);
    if (Known != FToolFiles.end())
        return Known->second;
    if (FToolFiles.size() >= MostKnown)
        FToolFiles.clear();
    return FToolFiles.emplace(Name, FromRoot(Name, FProcessFolder)).first->second;
}
