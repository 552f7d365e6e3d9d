#include "apps/quexley/writers/TeamCityWriter.h"

#include "apps/quexley/writers/Escapes.h"
#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace
{
constexpr TEscapes InValue =
    WithEscapes({}, {{'|', "||"}, {'\'', "|'"}, {'[', "|["}, {']', "|]"}, {'\r', "|r"}, {'\n', "|n"}});

/// The server may read the log in any encoding: what is not ASCII stands as units of UTF-16.
void AppendValue(std::string& Line, std::string_view Text)
{
    while (!Text.empty())
    {
        const auto* const End =
            std::find_if(Text.begin(), Text.end(), [](char Byte) { return static_cast<unsigned char>(Byte) >= 0x80; });
        const auto Plain = static_cast<std::size_t>(End - Text.begin());
        AppendEscaped(Line, Text.substr(0, Plain), InValue);
        Text.remove_prefix(Plain);
        if (Text.empty())
            return;
        const std::size_t Length = std::max<std::size_t>(Texts::CharacterLength(Text), 1);
        const std::string Units = Texts::ToUtf16(Text.substr(0, Length), true);
        for (std::size_t Place = 0; Place + 1 < Units.size(); Place += 2)
            fmt::format_to(std::back_inserter(Line), "|0x{:02X}{:02X}", static_cast<unsigned char>(Units[Place]),
                           static_cast<unsigned char>(Units[Place + 1]));
        Text.remove_prefix(Length);
    }
}
} // namespace

// The agent starts a build in the folder from which names count, and has no variable for it.
TTeamCityWriter::TTeamCityWriter(TOutput& Output, const TTextStyle& Style) : TAnnotatingWriter(Output, Style, "") {}

void TTeamCityWriter::AppendGroupBegin(std::string& Line, std::string_view Title) const
{
    Line += "##teamcity[blockOpened name='";
    AppendValue(Line, Title);
    Line += "']";
}

void TTeamCityWriter::AppendGroupEnd(std::string& Line, std::string_view Title) const
{
    Line += "##teamcity[blockClosed name='";
    AppendValue(Line, Title);
    Line += "']";
}

/// Such a message has no place of its own: its text has it as tools write it.
void TTeamCityWriter::AppendAnnotation(std::string& Line, const TAnnotation& Annotation) const
{
    const bool IsError = Annotation.Severity == TSeverity::Error;
    Line += "##teamcity[message text='";
    AppendValue(Line, Annotation.File);
    if (Annotation.Line)
        Line += Annotation.Column ? fmt::format("({},{})", *Annotation.Line, *Annotation.Column)
                                  : fmt::format("({})", *Annotation.Line);
    if (!Annotation.File.empty())
        Line += ": ";
    Line += IsError ? "error" : "warning";
    if (!Annotation.Code.empty())
        Line.append(" ").append(Annotation.Code);
    Line += ": ";
    if (Annotation.Code.empty() && !Annotation.Action.empty())
    {
        AppendValue(Line, Annotation.Action);
        Line += ": ";
    }
    AppendValue(Line, Annotation.Text);
    Line += IsError ? "' status='ERROR']" : "' status='WARNING']";
}
