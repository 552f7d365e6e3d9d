#pragma once

#include "apps/quexley/writers/AnnotatingWriter.h"

/// The text log with the commands that an agent of Azure Pipelines turns into groups and issues.
class TAzureWriter final : public TAnnotatingWriter
{
public:
    TAzureWriter(TOutput& Output, const TTextStyle& Style);

private:
    void AppendGroupBegin(std::string& Line, std::string_view Title) const override;
    void AppendGroupEnd(std::string& Line, std::string_view Title) const override;
    void AppendAnnotation(std::string& Line, const TAnnotation& Annotation) const override;
};
