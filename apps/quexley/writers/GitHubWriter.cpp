#include "apps/quexley/writers/GitHubWriter.h"

#include "platform/Files.h"
#include "platform/Paths.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace
{
/// For each byte whether it stands as it is in the text of an annotation, or in a property.
constexpr std::array<bool, 256> MakeTable(std::string_view Escaped)
{
    std::array<bool, 256> Result{};
    Result.fill(true);
    for (const char Character : Escaped)
        Result[static_cast<unsigned char>(Character)] = false;
    return Result;
}
constexpr auto PlainInText = MakeTable("%\r\n");
constexpr auto PlainInProperty = MakeTable("%\r\n:,");

void AppendEscaped(std::string& Target, std::string_view Text, const std::array<bool, 256>& IsPlain)
{
    for (auto Start = Text.begin(); Start != Text.end();)
    {
        const auto End =
            std::find_if(Start, Text.end(), [&](char Byte) { return !IsPlain[static_cast<unsigned char>(Byte)]; });
        Target.append(Start, End);
        if (End == Text.end())
            return;
        fmt::format_to(std::back_inserter(Target), "%{:02X}", *End);
        Start = End + 1;
    }
}

std::string EscapeText(std::string_view Text)
{
    std::string Result;
    AppendEscaped(Result, Text, PlainInText);
    return Result;
}

std::string EscapeProperty(std::string_view Text)
{
    std::string Result;
    AppendEscaped(Result, Text, PlainInProperty);
    return Result;
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
    FFiles.clear();
}

void TGitHubWriter::Annotate(const TOutputEvent& Event)
{
    const std::optional<TToolMessage> Message = ParseToolMessage(Event.Text);
    if (!Message)
        return;
    FLine = Message->IsError ? "::error" : "::warning";
    char Delimiter = ' ';
    const auto AddProperty = [&](std::string_view Name, std::string_view Value) {
        if (Value.empty())
            return;
        FLine.append(1, std::exchange(Delimiter, ',')).append(Name).append("=");
        AppendEscaped(FLine, Value, PlainInProperty);
    };
    AddProperty("file", FileOf(Message->File));
    AddProperty("line", Message->Line);
    AddProperty("col", Message->Column);
    AddProperty("title", Message->Code);
    FLine += "::";
    AppendEscaped(FLine, Message->Text, PlainInText);
    WriteActionLine(FLine, {}, {});
}

std::string_view TGitHubWriter::FileOf(std::string_view Name)
{
    constexpr std::size_t MostKnown = 10'000;
    if (Name.empty())
        return {};
    const auto Known = FFiles.find(Name);
    if (Known != FFiles.end())
        return Known->second;
    if (FFiles.size() >= MostKnown)
        FFiles.clear();
    return FFiles.emplace(Name, Place(Name)).first->second;
}

std::string TGitHubWriter::Place(std::string_view Name) const
{
    // What the tool names and where it looked for it may differ; only a file that is there is put another way.
    const std::string File = Files::Find(Paths::Expand(Name, FProcessFolder));
    if (File.empty())
        return std::string(Name);
    std::string Relative = Paths::RelativeTo(File, FRoot);
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
