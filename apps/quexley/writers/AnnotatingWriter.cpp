#include "apps/quexley/writers/AnnotatingWriter.h"

#include "apps/quexley/writers/EventTexts.h"
#include "platform/Files.h"
#include "platform/Paths.h"

#include <fmt/format.h>

namespace
{
std::string RootFolder(const std::string& Variable)
{
    std::string Folder;
    return Environment::Get(Variable, Folder) && !Folder.empty() ? Folder : Files::CurrentFolder();
}
} // namespace

TAnnotatingWriter::TAnnotatingWriter(TOutput& Output, const TTextStyle& Style, const std::string& RootVariable)
    : TTextWriter(Output, Style), FRoot(RootFolder(RootVariable)), FStartFolder(Files::CurrentFolder())
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
    const std::string Text = FindingText(Event);
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
}

void TAnnotatingWriter::Annotate(const TExpansionErrorEvent& Event)
{
    const std::string Text = ExpansionErrorText(Event);
    Write({.Action = FAction, .Text = Text});
}

void TAnnotatingWriter::Annotate(const TScriptErrorEvent& Event)
{
    const std::string Text = ScriptErrorText(Event);
    Write({.Action = FAction, .Text = Text});
}

void TAnnotatingWriter::Annotate(const TProcessStartedEvent& Event)
{
    FProcessFolder = Paths::Expand(Event.Folder, Files::CurrentFolder());
    FToolFiles.clear();
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

void TAnnotatingWriter::Annotate(const TActionEndedEvent& Event)
{
    if (const std::string& Failure = Digest().Actions().back().Failure; !Failure.empty())
        Write({.Action = Event.Action, .Text = Failure});
}

void TAnnotatingWriter::Write(const TAnnotation& Annotation)
{
    FLine.clear();
    AppendAnnotation(FLine, Annotation);
    WriteActionLine(FLine, TLineKind::Mark, {});
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
