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

void TGitHubWriter::ValidationError(const TActionIdentity& Action, std::string_view Label, std::string_view Message)
{
    TTextWriter::ValidationError(Action, Label, Message);
    WriteError(Action.Name, fmt::format("{}: {}", Label, Message));
}

void TGitHubWriter::ActionStarted(const TActionIdentity& Action)
{
    FAction = Action.Name;
    TTextWriter::ActionStarted(Action);
}

void TGitHubWriter::WriteHeading(const std::string& Position, const TActionIdentity& Action)
{
    WriteLine(fmt::format("::group::{} {} ({})", Position, EscapeText(Action.Name), Action.Type));
}

void TGitHubWriter::WriteEndOfLines()
{
    WriteLine("::endgroup::");
}

void TGitHubWriter::ExpansionError(int Index, std::string_view Label, std::string_view Text, std::string_view Reason)
{
    TTextWriter::ExpansionError(Index, Label, Text, Reason);
    WriteError(FAction, fmt::format("{}: \"{}\": {}", Label, Text, Reason));
}

void TGitHubWriter::ScriptError(int Index, std::string_view Script, int Line, std::string_view Reason)
{
    TTextWriter::ScriptError(Index, Script, Line, Reason);
    WriteError(FAction, fmt::format("{}, line {}: {}", Script, Line, Reason));
}

void TGitHubWriter::ProcessStarted(int Index, const TProcessStartEvent& Process)
{
    FProcessFolder = Paths::Expand(Process.Folder, Files::CurrentFolder());
    TTextWriter::ProcessStarted(Index, Process);
}

void TGitHubWriter::WriteToolMessage(const TToolMessage& Message, std::string_view Line)
{
    TTextWriter::WriteToolMessage(Message, Line);
    std::string Properties;
    const auto AddProperty = [&](std::string_view Name, std::string_view Value) {
        if (!Value.empty())
            Properties += fmt::format("{}{}={}", Properties.empty() ? " " : ",", Name, EscapeProperty(Value));
    };
    AddProperty("file", FileOf(Message));
    AddProperty("line", Message.Line);
    AddProperty("col", Message.Column);
    AddProperty("title", Message.Code);
    const std::string_view Command = Message.IsError ? "error" : "warning";
    WriteActionLine(fmt::format("::{}{}::{}", Command, Properties, EscapeText(Message.Text)), {}, {});
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

void TGitHubWriter::ActionEnded(const TActionIdentity& Action, TActionResult Result, double Seconds,
                                std::string_view Reason)
{
    TTextWriter::ActionEnded(Action, Result, Seconds, Reason);
    if (Result == TActionResult::Failure)
        WriteError(Action.Name, "The action failed.");
}

void TGitHubWriter::WriteError(std::string_view Title, std::string_view Text)
{
    WriteActionLine(fmt::format("::error title={}::{}", EscapeProperty(Title), EscapeText(Text)), {}, {});
}
