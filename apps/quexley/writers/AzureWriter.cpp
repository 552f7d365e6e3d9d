#include "apps/quexley/writers/AzureWriter.h"

#include "apps/quexley/writers/Escapes.h"

#include <fmt/format.h>

namespace
{
constexpr TEscapes InText = WithEscapes({}, {{'%', "%AZP25"}, {'\r', "%0D"}, {'\n', "%0A"}});
constexpr TEscapes InProperty = WithEscapes(InText, {{';', "%3B"}, {']', "%5D"}});
} // namespace

TAzureWriter::TAzureWriter(TOutput& Output, const TTextStyle& Style)
    : TAnnotatingWriter(Output, Style, "BUILD_SOURCESDIRECTORY")
{}

// The agent takes the rest of such a line as it stands.
void TAzureWriter::AppendGroupBegin(std::string& Line, std::string_view Title) const
{
    Line.append("##[group]").append(Title);
}

void TAzureWriter::AppendGroupEnd(std::string& Line, std::string_view) const
{
    Line += "##[endgroup]";
}

void TAzureWriter::AppendAnnotation(std::string& Line, const TAnnotation& Annotation) const
{
    Line += Annotation.Severity == TSeverity::Error ? "##vso[task.logissue type=error;"
                                                    : "##vso[task.logissue type=warning;";
    const auto AddProperty = [&](std::string_view Name, std::string_view Value) {
        if (Value.empty())
            return;
        Line.append(Name).append("=");
        AppendEscaped(Line, Value, InProperty);
        Line += ';';
    };
    const auto AddNumber = [&](std::string_view Name, std::optional<int> Value) {
        if (Value)
            AddProperty(Name, fmt::format_int(*Value).c_str());
    };
    AddProperty("sourcepath", Annotation.File);
    AddNumber("linenumber", Annotation.Line);
    AddNumber("columnnumber", Annotation.Column);
    AddProperty("code", Annotation.Code);
    Line += ']';
    if (Annotation.Code.empty() && !Annotation.Action.empty())
    {
        AppendEscaped(Line, Annotation.Action, InText);
        Line += ": ";
    }
    AppendEscaped(Line, Annotation.Text, InText);
}
