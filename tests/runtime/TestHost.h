// A host for tests: a runtime with a registry, options and .NET versions made up for them, and a log that
// remembers.
#pragma once

#include "host/QXExecuteAction.h"
#include "runtime/Runtime.h"
#include "runtime/actions/RunContext.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Remembers every event by its kind, and the order of all of them in Events.
class TRecordedLog final : public IRunEvents
{
public:
    struct TFinding
    {
        int Index;
        std::string Label, Message;
        bool operator==(const TFinding&) const = default;
    };
    struct TExpansionError
    {
        int Index;
        std::string Label, Text, Reason;
    };
    struct TScriptError
    {
        std::string Script;
        int Line;
        std::string Reason;
    };
    struct TEndedAction
    {
        int Index;
        TActionResult Result;
        std::string Reason;
    };

    std::vector<std::string> Events; ///< "run-started 2", "action-started 1", "message TEXT", "output TEXT"
    std::vector<std::string> Messages;
    std::vector<std::string> OutputLines; ///< of both streams
    std::vector<std::string> ErrorLines;  ///< of standard error alone
    std::vector<TFinding> Findings;
    std::vector<TExpansionError> ExpansionErrors;
    std::vector<TScriptError> ScriptErrors;
    std::vector<TProcessStartEvent> ProcessStarts;
    std::vector<TProcessEndEvent> ProcessEnds;
    std::vector<TEndedAction> EndedActions;
    TRunTotals Totals;

    void RunStarted(std::string_view, int Actions) override { Note("run-started", std::to_string(Actions)); }
    void ValidationError(const TActionIdentity& Action, std::string_view Label, std::string_view Message) override
    {
        Findings.push_back({Action.Index, std::string(Label), std::string(Message)});
        Note("validation-error", Label);
    }
    void ActionStarted(const TActionIdentity& Action) override { Note("action-started", std::to_string(Action.Index)); }
    void Message(int, std::string_view Text) override
    {
        Messages.emplace_back(Text);
        Note("message", Text);
    }
    void ExpansionError(int Index, std::string_view Label, std::string_view Text, std::string_view Reason) override
    {
        ExpansionErrors.push_back({Index, std::string(Label), std::string(Text), std::string(Reason)});
        Note("expansion-error", Label);
    }
    void ScriptError(int, std::string_view Script, int Line, std::string_view Reason) override
    {
        ScriptErrors.push_back({std::string(Script), Line, std::string(Reason)});
        Note("script-error", Script);
    }
    void ProcessStarted(int, const TProcessStartEvent& Process) override
    {
        ProcessStarts.push_back(Process);
        Note("process-started", Process.Executable);
    }
    void Output(int, TQXOutputStream Stream, std::string_view Line) override
    {
        OutputLines.emplace_back(Line);
        if (Stream == TQXOutputStream::StdErr)
            ErrorLines.emplace_back(Line);
        Note("output", Line);
    }
    void ProcessEnded(int, const TProcessEndEvent& End) override
    {
        ProcessEnds.push_back(End);
        Note("process-ended", std::to_string(End.ExitCode));
    }
    void ActionEnded(const TActionIdentity& Action, TActionResult Result, double, std::string_view Reason) override
    {
        static constexpr std::string_view Names[] = {"success", "failure", "skipped", "terminated"};
        EndedActions.push_back({Action.Index, Result, std::string(Reason)});
        Note("action-ended", std::to_string(Action.Index) + " " + std::string(Names[static_cast<std::size_t>(Result)]));
    }
    void RunEnded(TRunResult Result, const TRunTotals& ATotals) override
    {
        static constexpr std::string_view Names[] = {"success", "failure", "invalid", "terminated"};
        Totals = ATotals;
        Note("run-ended", Names[static_cast<std::size_t>(Result)]);
    }

private:
    void Note(std::string_view Event, std::string_view Text)
    {
        Events.push_back(std::string(Event) + " " + std::string(Text));
    }
};

/// .NET versions as a test lists them.
struct TFakeDotNetVersion final : IQXDotNetVersionInfo
{
    TFakeDotNetVersion(std::string AName, std::string AFramework, std::string ASDK)
        : Name(std::move(AName)), Framework(std::move(AFramework)), SDK(std::move(ASDK))
    {}
    std::string GetVersionName() const override { return Name; }
    std::string GetFrameworkPath() const override { return Framework; }
    std::string GetSDKPath() const override { return SDK; }

    std::string Name, Framework, SDK;
};

class TFakeDotNetInfo final : public IQXDotNetInfo
{
public:
    explicit TFakeDotNetInfo(std::vector<TFakeDotNetVersion> Versions) : FVersions(std::move(Versions)) {}
    int GetVersionCount() const override { return static_cast<int>(FVersions.size()); }
    const IQXDotNetVersionInfo& GetVersionByIndex(int Index) const override
    {
        return FVersions.at(static_cast<std::size_t>(Index));
    }
    const IQXDotNetVersionInfo* GetVersion(std::string_view Name) const override
    {
        for (const TFakeDotNetVersion& Version : FVersions)
            if (Version.Name == Name)
                return &Version;
        return nullptr;
    }

private:
    std::vector<TFakeDotNetVersion> FVersions;
};

/// A finding list for calls of Validate without a runner.
class TRecordedFindings final : public IQXActionValidationError
{
public:
    void AddError(std::string_view Label, std::string_view Message) override
    {
        Findings.emplace_back(std::string(Label) + ": " + std::string(Message));
    }
    std::vector<std::string> Findings; ///< "LABEL: MESSAGE"
};

/// An installed runtime and a recorded log. Options and registry are empty and no .NET is installed until a test
/// says otherwise, which it does before they are first used.
class TTestHost
{
public:
    TTestHost()
    {
        SetOptions("");
        SetRegistry("");
        SetDotNetVersions({});
    }

    /// The text of the options file.
    void SetOptions(std::string Text)
    {
        Runtime.SetOptionsSource([Text = std::move(Text)] { return TOptionsFile::Parse("options.toml", Text); });
    }
    /// The text of a registry export, or nothing for an empty registry.
    void SetRegistry(std::string Text)
    {
        Runtime.SetRegistrySource(
            [Text = std::move(Text)] { return Text.empty() ? EmptyRegistry() : ParseRegistryExport(Text); });
    }
    void SetDotNetVersions(std::vector<TFakeDotNetVersion> Versions)
    {
        Runtime.SetDotNetInfo(std::make_unique<TFakeDotNetInfo>(std::move(Versions)));
    }

    /// Connects the action with the log until the result goes: for calls of single steps.
    [[nodiscard]] std::unique_ptr<TRunContext> Connect(TCustomQXAction& Action)
    {
        return std::make_unique<TRunContext>(Action, Settings, Variables, Log);
    }
    /// Executes the action.
    bool Execute(TCustomQXAction& Action)
    {
        const auto Connection = Connect(Action);
        return Action.Execute();
    }
    /// The arguments that the action gives its tool; throws if a step before the start fails.
    [[nodiscard]] std::string CommandLine(TQXExecuteAbstractAction& Action)
    {
        const auto Connection = Connect(Action);
        const auto Builder = CreateCommandLineBuilder();
        if (!Action.BeforeGetCommandLine() || !Action.GetCommandLine(*Builder) || !Action.AfterGetCommandLine())
            throw std::runtime_error("no command line");
        return Builder->GetCommandLineText();
    }
    [[nodiscard]] static std::vector<std::string> Validate(TCustomQXAction& Action)
    {
        TRecordedFindings Errors;
        if (Action.Validate(Errors) != Errors.Findings.empty())
            Errors.Findings.emplace_back("Validate's result does not fit its findings");
        return Errors.Findings;
    }

    TQXRuntime Runtime;
    TRecordedLog Log;
    TVariables Variables;
    TActionRun Settings{{1, "TTestAction", "Test"}, {}, false};
};
