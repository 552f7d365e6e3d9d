#pragma once

#include "apps/quexley/writers/TextWriter.h"
#include "apps/quexley/writers/ToolMessage.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

/// The text log with the commands that GitHub's runner turns into groups and annotations.
class TGitHubWriter final : public TTextWriter
{
public:
    TGitHubWriter(TOutput& Output, const TTextStyle& Style);

    void Handle(const TRunEvent& Event) override;

private:
    void WriteHeading(std::string_view Position, std::string_view Action, std::string_view Type) override;
    void WriteEndOfLines() override;

    void Annotate(const TValidationErrorEvent& Event);
    void Annotate(const TActionStartedEvent& Event);
    void Annotate(const TExpansionErrorEvent& Event);
    void Annotate(const TScriptErrorEvent& Event);
    void Annotate(const TProcessStartedEvent& Event);
    void Annotate(const TOutputEvent& Event);
    void Annotate(const TActionEndedEvent& Event);
    /// What needs no annotation.
    template <typename TEvent> void Annotate(const TEvent&) {}
    void WriteError(std::string_view Title, std::string_view Text);
    /// How an annotation names a file that the tool names.
    [[nodiscard]] std::string_view FileOf(std::string_view Name);
    [[nodiscard]] std::string Place(std::string_view Name) const;

    std::string FRoot;                                      ///< the folder to which annotations are relative
    std::string FAction;                                    ///< name of the running action
    std::string FProcessFolder;                             ///< the running tool's, to which its messages are relative
    std::map<std::string, std::string, std::less<>> FFiles; ///< names that were looked for, as annotations give them
    std::string FLine;
};
