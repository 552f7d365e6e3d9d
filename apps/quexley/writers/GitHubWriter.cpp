#include "apps/quexley/writers/GitHubWriter.h"

#include "apps/quexley/writers/Escapes.h"

#include <fmt/format.h>

#include <utility>

namespace
{
constexpr TEscapes InText = WithEscapes({}, {{'%', "%25"}, {'\r', "%0D"}, {'\n', "%0A"}});
constexpr TEscapes InProperty = WithEscapes(InText, {{':', "%3A"}, {',', "%2C"}});
} // namespace

TGitHubWriter::TGitHubWriter(TOutput& Output, const TTextStyle& Style)
    : TAnnotatingWriter(Output, Style, "GITHUB_WORKSPACE")
{}

void TGitHubWriter::AppendGroupBegin(std::string& Line, std::string_view Title) const
{
    Line += "::group::";
    AppendEscaped(Line, Title, InText);
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
        AppendEscaped(Line, Value, InProperty);
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
    AppendEscaped(Line, Annotation.Text, InText);
}
