// A host for tests: a runtime with a registry, options and .NET versions made up for them, and a log that
// remembers.
#pragma once

#include "host/QXExecuteAction.h"
#include "runtime/Runtime.h"
#include "runtime/actions/PlannedFiles.h"
#include "runtime/actions/RunContext.h"

#include <memory>
#include <optional>
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

    struct TProcessStart
    {
        std::string Executable, Folder, Arguments;
        bool DryRun;
        std::optional<std::string> ResponseFile;
    };
    struct TProcessEnd
    {
        int ExitCode;
        std::string Signal;
        bool TimedOut;
    };

    std::vector<std::string> Events; ///< "run-started 2", "action-started 1", "message TEXT", "output TEXT"
    std::vector<std::string> Messages;
    std::vector<std::string> OutputLines; ///< of both streams
    std::vector<std::string> ErrorLines;  ///< of standard error alone
    std::vector<TFinding> Findings;
    std::vector<TExpansionError> ExpansionErrors;
    std::vector<TScriptError> ScriptErrors;
    std::vector<TProcessStart> ProcessStarts;
    std::vector<TProcessEnd> ProcessEnds;
    std::vector<TEndedAction> EndedActions;
    TRunEndedEvent Totals;

    void Handle(const TRunEvent& Event) override
    {
        std::visit(
            [this](const auto& Known) {
                const std::string Text = Remember(Known);
                if (!Known.Name.empty())
                    Events.push_back(std::string(Known.Name) + " " + Text);
            },
            Event);
    }

private:
    template <TSeverity Severity> std::string Remember(const THostEvent<Severity>& Event)
    {
        return std::string(Event.File.value_or("")) + ":" + std::to_string(Event.Line.value_or(0)) + ": " +
               std::string(Event.Message);
    }
    std::string Remember(const TDiagnosticEvent& Event)
    {
        return std::string(Event.Code) + " " + std::string(Event.Message);
    }
    std::string Remember(const TRunStartedEvent& Event) { return std::to_string(Event.Actions); }
    std::string Remember(const TValidationErrorEvent& Event)
    {
        Findings.push_back({Event.Index, std::string(Event.Label), std::string(Event.Message)});
        return std::string(Event.Label);
    }
    std::string Remember(const TActionStartedEvent& Event) { return std::to_string(Event.Index); }
    std::string Remember(const TMessageEvent& Event) { return Messages.emplace_back(Event.Text); }
    std::string Remember(const TExpansionErrorEvent& Event)
    {
        ExpansionErrors.push_back(
            {Event.Index, std::string(Event.Label), std::string(Event.Text), std::string(Event.Reason)});
        return std::string(Event.Label);
    }
    std::string Remember(const TScriptErrorEvent& Event)
    {
        ScriptErrors.push_back({std::string(Event.Script), Event.Line.value_or(0), std::string(Event.Reason)});
        return std::string(Event.Script);
    }
    std::string Remember(const TProcessStartedEvent& Event)
    {
        ProcessStarts.push_back({std::string(Event.Executable), std::string(Event.Folder), std::string(Event.Arguments),
                                 Event.DryRun, std::optional<std::string>(Event.ResponseFile)});
        return std::string(Event.Executable);
    }
    std::string Remember(const TOutputEvent& Event)
    {
        if (Event.Stream == TQXOutputStream::StdErr)
            ErrorLines.emplace_back(Event.Text);
        return OutputLines.emplace_back(Event.Text);
    }
    std::string Remember(const TProcessEndedEvent& Event)
    {
        ProcessEnds.push_back({Event.ExitCode.value_or(0), std::string(Event.Signal.value_or("")), Event.TimedOut});
        return std::to_string(ProcessEnds.back().ExitCode);
    }
    std::string Remember(const TActionEndedEvent& Event)
    {
        static constexpr std::string_view Names[] = {"success", "failure", "skipped", "terminated", "planned"};
        EndedActions.push_back({Event.Index, Event.Result, std::string(Event.Reason.value_or(""))});
        return std::to_string(Event.Index) + " " + std::string(Names[static_cast<std::size_t>(Event.Result)]);
    }
    std::string Remember(const TRunEndedEvent& Event)
    {
        static constexpr std::string_view Names[] = {"success", "failure", "invalid", "terminated", "host error"};
        Totals = Event;
        return std::string(Names[static_cast<std::size_t>(Event.Result)]);
    }
    std::string Remember(const TTickEvent&) { return {}; }
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
    TPlannedFiles Plan; ///< of actions whose Settings name it
    TActionRun Settings{1, {}, nullptr};
};
