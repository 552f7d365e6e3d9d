#pragma once

#include "apps/quexley/writers/AnnotatingWriter.h"

/// The text log with the service messages that TeamCity turns into blocks and problems.
class TTeamCityWriter final : public TAnnotatingWriter
{
public:
    TTeamCityWriter(TOutput& Output, const TTextStyle& Style);

private:
    void AppendGroupBegin(std::string& Line, std::string_view Title) const override;
    void AppendGroupEnd(std::string& Line, std::string_view Title) const override;
    void AppendAnnotation(std::string& Line, const TAnnotation& Annotation) const override;
};
