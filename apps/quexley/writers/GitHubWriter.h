#pragma once

#include "apps/quexley/writers/TextWriter.h"

#include <string>
#include <string_view>

/// The text log with the commands that GitHub's runner turns into groups and annotations.
class TGitHubWriter final : public TTextWriter
{
public:
    TGitHubWriter(TOutput& Output, const TTextStyle& Style);

    void ValidationError(const TActionIdentity& Action, std::string_view Label, std::string_view Message) override;
    void ActionStarted(const TActionIdentity& Action) override;
    void ExpansionError(int Index, std::string_view Label, std::string_view Text, std::string_view Reason) override;
    void ScriptError(int Index, std::string_view Script, int Line, std::string_view Reason) override;
    void ProcessStarted(int Index, const TProcessStartEvent& Process) override;
    void ActionEnded(const TActionIdentity& Action, TActionResult Result, double Seconds,
                     std::string_view Reason) override;

private:
    void WriteHeading(const std::string& Position, const TActionIdentity& Action) override;
    void WriteEndOfLines() override;
    void WriteToolMessage(const TToolMessage& Message, std::string_view Line) override;
    [[nodiscard]] bool WantsToolMessages() const override { return true; }
    void WriteError(std::string_view Title, std::string_view Text);
    [[nodiscard]] std::string FileOf(const TToolMessage& Message) const;

    std::string FRoot;          ///< the folder to which annotations are relative
    std::string FAction;        ///< name of the running action
    std::string FProcessFolder; ///< the running tool's, to which its messages are relative
};
