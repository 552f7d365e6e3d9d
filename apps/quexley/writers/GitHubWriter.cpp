#include "apps/quexley/writers/GitHubWriter.h"

#include "platform/Files.h"

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

std::string RootFolder()
{
    std::string Workspace;
    return Environment::Get("GITHUB_WORKSPACE", Workspace) && !Workspace.empty() ? Workspace : Files::CurrentFolder();
}
} // namespace

TGitHubWriter::TGitHubWriter(TOutput& Output, const TTextStyle& Style) : TAnnotatingWriter(Output, Style, RootFolder())
{}

void TGitHubWriter::AppendGroupBegin(std::string& Line, std::string_view Title) const
{
    Line += "::group::";
    AppendEscaped(Line, Title, PlainInText);
}

void TGitHubWriter::AppendGroupEnd(std::string& Line, std::string_view) const
{
    Line += "::endgroup::";
}

void TGitHubWriter::AppendAnnotation(std::string& Line, const TAnnotation& Annotation) const
{
    Line += Annotation.Severity == TSeverity::Error ? "::error" : "::warning";
    char Delimiter = ' ';
    const auto AddProperty = [&](std::string_view Name, std::string_view Value) {
        if (Value.empty())
            return;
        Line.append(1, std::exchange(Delimiter, ',')).append(Name).append("=");
        AppendEscaped(Line, Value, PlainInProperty);
    };
    const auto AddNumber = [&](std::string_view Name, std::optional<int> Value) {
        if (Value)
            AddProperty(Name, fmt::format_int(*Value).c_str());
    };
    AddProperty("file", Annotation.File);
    AddNumber("line", Annotation.Line);
    AddNumber("col", Annotation.Column);
    AddProperty("title", Annotation.Code.empty() ? Annotation.Action : Annotation.Code);
    // Without a property the runner wants a blank.
    Line += Delimiter == ' ' ? " ::" : "::";
    AppendEscaped(Line, Annotation.Text, PlainInText);
}
