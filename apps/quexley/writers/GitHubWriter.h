#pragma once

#include "apps/quexley/writers/AnnotatingWriter.h"

/// The text log with the commands that GitHub's runner turns into groups and annotations.
class TGitHubWriter final : public TAnnotatingWriter
{
public:
    TGitHubWriter(TOutput& Output, const TTextStyle& Style);

private:
    void AppendGroupBegin(std::string& Line, std::string_view Title) const override;
    void AppendGroupEnd(std::string& Line, std::string_view Title) const override;
    void AppendAnnotation(std::string& Line, const TAnnotation& Annotation) const override;
};
