#pragma once

#include "apps/quexley/writers/TextWriter.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

/// A problem that a build system marks in its view of a run.
struct TAnnotation
{
    TSeverity Severity = TSeverity::Error;
    std::string_view Action{}; ///< empty: of no action
    std::string_view Code{};   ///< of a tool's message
    std::string_view Text{};
    std::string_view File{}; ///< from the folder to which the system counts, if it lies there
    std::optional<int> Line{};
    std::optional<int> Column{};
};

/// The text log with groups and annotations: what is marked, and where, is the same for all systems, a system says
/// only how a line of its own looks. Lines may hold no line end.
class TAnnotatingWriter : public TTextWriter
{
public:
    /// RootVariable, in the environment, holds the folder from which the system counts the names of files; empty, or
    /// not set: the current folder.
    TAnnotatingWriter(TOutput& Output, const TTextStyle& Style, const std::string& RootVariable);

    void Handle(const TRunEvent& Event) final;

protected:
    // Each appends to an empty line.
    /// Title is the same for both.
    virtual void AppendGroupBegin(std::string& Line, std::string_view Title) const = 0;
    virtual void AppendGroupEnd(std::string& Line, std::string_view Title) const = 0;
    virtual void AppendAnnotation(std::string& Line, const TAnnotation& Annotation) const = 0;

private:
    void WriteHeading(std::string_view Position, std::string_view Action, std::string_view Type) final;
    void WriteEndOfLines() final;

    template <TSeverity Severity> void Annotate(const THostEvent<Severity>& Event);
    void Annotate(const TValidationErrorEvent& Event);
    void Annotate(const TActionStartedEvent& Event);
    void Annotate(const TExpansionErrorEvent& Event);
    void Annotate(const TScriptErrorEvent& Event);
    void Annotate(const TProcessStartedEvent& Event);
    void Annotate(const TDiagnosticEvent& Event);
    void Annotate(const TActionEndedEvent& Event);
    /// What needs no annotation.
    template <typename TEvent> void Annotate(const TEvent&) {}
    void Write(const TAnnotation& Annotation);
    /// How an annotation names a file, which counts from Folder.
    [[nodiscard]] std::string FromRoot(std::string_view File, const std::string& Folder) const;
    /// The same of a file that the running tool names; each is looked for once.
    [[nodiscard]] std::string_view ToolFile(std::string_view Name);

    std::string FRoot;
    std::string FStartFolder;   ///< the one in which the program was started
    std::string FGroup;         ///< title of the running action's group
    std::string FAction;        ///< name of the running action
    std::string FProcessFolder; ///< the running tool's, to which its messages are relative
    std::map<std::string, std::string, std::less<>>
        FToolFiles; ///< those that were looked for, as annotations name them
    std::string FLine;
};
