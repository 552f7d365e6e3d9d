#include "apps/quexley/writers/GitHubWriter.h"

#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <fmt/format.h>

namespace
{
std::string EscapeText(std::string_view Text)
{
    return Text::Replace(Text::Replace(Text::Replace(Text, "%", "%25"), "\r", "%0D"), "\n", "%0A");
}

std::string EscapeProperty(std::string_view Text)
{
    return Text::Replace(Text::Replace(EscapeText(Text), ":", "%3A"), ",", "%2C");
}

std::string RootFolder()
{
    std::string Workspace;
    return Environment::Get("GITHUB_WORKSPACE", Workspace) && !Workspace.empty() ? Workspace : Files::CurrentFolder();
}
} // namespace

TGitHubWriter::TGitHubWriter(TOutput& Output, const TTextStyle& Style) : TTextWriter(Output, Style), FRoot(RootFolder())
{}

void TGitHubWriter::Handle(const TRunEvent& Event)
{
    TTextWriter::Handle(Event);
    std::visit([this](const auto& Known) { Annotate(Known); }, Event);
}

void TGitHubWriter::WriteHeading(std::string_view Position, std::string_view Action, std::string_view Type)
{
    WriteLine(fmt::format("::group::{} {} ({})", Position, EscapeText(Action), Type));
}

void TGitHubWriter::WriteEndOfLines()
{
    WriteLine("::endgroup::");
}

void TGitHubWriter::Annotate(const TValidationErrorEvent& Event)
{
    WriteError(Event.Action, fmt::format("{}: {}", Event.Label, Event.Message));
}

void TGitHubWriter::Annotate(const TActionStartedEvent& Event)
{
    FAction = Event.Action;
}

void TGitHubWriter::Annotate(const TExpansionErrorEvent& Event)
{
    WriteError(FAction, fmt::format("{}: \"{}\": {}", Event.Label, Event.Text, Event.Reason));
}

void TGitHubWriter::Annotate(const TScriptErrorEvent& Event)
{
    WriteError(FAction, fmt::format("{}, line {}: {}", Event.Script, Event.Line, Event.Reason));
}

void TGitHubWriter::Annotate(const TProcessStartedEvent& Event)
{
    FProcessFolder = Paths::Expand(std::string(Event.Folder), Files::CurrentFolder());
}

void TGitHubWriter::Annotate(const TOutputEvent& Event)
{
    const std::optional<TToolMessage> Message = ParseToolMessage(Event.Text);
    if (!Message)
        return;
    std::string Properties;
    const auto AddProperty = [&](std::string_view Name, std::string_view Value) {
        if (!Value.empty())
            Properties += fmt::format("{}{}={}", Properties.empty() ? " " : ",", Name, EscapeProperty(Value));
    };
    AddProperty("file", FileOf(*Message));
    AddProperty("line", Message->Line);
    AddProperty("col", Message->Column);
    AddProperty("title", Message->Code);
    const std::string_view Command = Message->IsError ? "error" : "warning";
    WriteActionLine(fmt::format("::{}{}::{}", Command, Properties, EscapeText(Message->Text)), {}, {});
}

std::string TGitHubWriter::FileOf(const TToolMessage& Message) const
{
    if (Message.File.empty())
        return {};
    // What the tool names and where it looked for it may differ; only a file that is there is put another way.
    const std::string File = Files::Find(Paths::Expand(Message.File, FProcessFolder));
    if (File.empty())
        return std::string(Message.File);
    const std::string Relative = Paths::RelativeTo(File, FRoot);
    return Relative.starts_with("..") ? File : Relative;
}

void TGitHubWriter::Annotate(const TActionEndedEvent& Event)
{
    if (Event.Result == TActionResult::Failure)
        WriteError(Event.Action, "The action failed.");
}

void TGitHubWriter::WriteError(std::string_view Title, std::string_view Text)
{
    WriteActionLine(fmt::format("::error title={}::{}", EscapeProperty(Title), EscapeText(Text)), {}, {});
}
