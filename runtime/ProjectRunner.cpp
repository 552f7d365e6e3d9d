#include "runtime/ProjectRunner.h"

#include "host/QXExecuteAction.h"
#include "platform/Files.h"
#include "platform/Processes.h"
#include "platform/Text.h"
#include "runtime/ActionSelection.h"
#include "runtime/ActionTest.h"
#include "runtime/HostErrors.h"
#include "runtime/ResumeNote.h"
#include "runtime/Runtime.h"
#include "runtime/VariableUse.h"
#include "runtime/actions/PlannedFiles.h"
#include "runtime/actions/RunContext.h"
#include "runtime/log/CleanEvents.h"
#include "runtime/log/Diagnostics.h"
#include "runtime/log/HostEvents.h"
#include "runtime/log/MissingOutputs.h"
#include "runtime/log/NoEvents.h"
#include "runtime/scripting/ScriptEngine.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <set>
#include <stdexcept>

namespace
{
/// Makes a folder the current one as long as it lives.
class TFolderScope
{
public:
    explicit TFolderScope(const std::string& Folder) : FBefore(Files::CurrentFolder())
    {
        if (!Folder.empty())
            Files::SetCurrentFolder(Folder);
    }
    ~TFolderScope()
    {
        try
        {
            Files::SetCurrentFolder(FBefore);
        }
        catch (const EFileError&)
        {
            // An action removed the folder from which the program was started: there is none to go back to.
            return;
        }
    }
    TFolderScope(const TFolderScope&) = delete;
    TFolderScope& operator=(const TFolderScope&) = delete;

private:
    std::string FBefore;
};

class TStopwatch
{
public:
    [[nodiscard]] double Seconds() const
    {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - FStart).count();
    }

private:
    std::chrono::steady_clock::time_point FStart = std::chrono::steady_clock::now();
};

/// Passes findings on as events and counts them.
class TFindings final : public IQXActionValidationError
{
public:
    TFindings(IRunEvents& Events, const TProjectAction& Action) : FEvents(Events), FAction(Action) {}
    void AddError(std::string_view Label, std::string_view Message) override
    {
        FEvents.Handle(TValidationErrorEvent{FAction.Index, FAction.Type, FAction.Name, Label, Message, FAction.File,
                                             FAction.Line, FAction.Column});
        ++FCount;
    }
    [[nodiscard]] int Count() const { return FCount; }

private:
    IRunEvents& FEvents;
    const TProjectAction& FAction;
    int FCount = 0;
};
} // namespace

struct TProjectRunner::TImpl
{
    TImpl(TProject& AProject, TRunOptions AOptions, IRunEvents& Target);

    void CollectSecrets();
    void AddSecret(const TQXPropertyValue& Value);
    void AddExpanded(std::string_view Expression);
    [[nodiscard]] std::size_t Begin();
    [[nodiscard]] std::size_t PlaceToResume();
    void TakeNotedSettings(const TResumeNote::TPlace& Place);
    void NoteSettings();

    /// Says a line of the host's own, about the run or about an action.
    void Tell(std::string_view Text, int Index = 0) { Events.Handle(TMessageEvent{Index, Text}); }
    [[nodiscard]] bool ValidateAll();
    [[nodiscard]] bool ValidateAction(TProjectAction& Action);
    [[nodiscard]] bool CheckScripts(TProjectAction& Action);
    /// Tells of a file of the host's that turned out to be wrong.
    void TellFileError();
    [[nodiscard]] TRunResult ValidateAndRun();
    void RunAll();
    void RunOrSkip(TProjectAction& Action);
    void RunAction(TProjectAction& Action);
    [[nodiscard]] bool Execute(TProjectAction& Action);
    void NoteOutputs(TProjectAction& Action, const TActionRun& Run);
    /// Whether its test lets it run; one that cannot be made fails it when it runs.
    [[nodiscard]] bool IsWanted(const TProjectAction& Action) const;
    void Skip(const TProjectAction& Action, std::string_view Reason);
    void Count(const TProjectAction& Action, TActionResult ActionResult);
    [[nodiscard]] TRunResult Result() const;
    void Note(const TProjectAction& Action);
    void NoteSuccess();
    template <typename TStep> void TryNote(TStep Step);

    TQXRuntime& Runtime = TQXRuntime::Current();
    TProject& Project;
    TRunOptions Options;
    TMissingOutputs MissingOutputs;
    TDiagnostics Diagnostics{MissingOutputs};
    TCleanEvents Events{Diagnostics};
    TVariables Variables;
    std::vector<TProjectAction*> Selected;
    std::set<std::string> ParsedScripts;
    TResumeNote Resume;
    TResumeNote::TPlace Noted;            ///< what the next note says
    std::vector<std::string> ResumeLines; ///< told when the run has started
    bool CanNote = true;
    bool Stopped = false;
    TRunEndedEvent Totals;
    TPlannedFiles Plan; ///< of a dry run
};

TProjectRunner::TImpl::TImpl(TProject& AProject, TRunOptions AOptions, IRunEvents& Target)
    : Project(AProject), Options(std::move(AOptions)), MissingOutputs(Target), Resume(AProject.File)
{
    Project.GiveScripts();
    Variables = Project.ExpressionVariables();
    CheckSettings(Project, Variables, Options.Overrides);
    Selected = SelectActions(Project, Options, Begin());
    Variables.SetOverrides(Options.Overrides);
    CollectSecrets();
    NoteSettings();
}

/// Values of the secret variables and, of every action, of the properties that hold a secret.
void TProjectRunner::TImpl::CollectSecrets()
{
    for (const std::string& Name : Project.AllSecrets())
        AddExpanded("%" + Name + "%");
    for (const TProjectAction& Action : Project.Actions)
        for (const TQXProperty& Property : Action.Object->Properties())
            if (Property.IsSecret)
                AddSecret(Property.Read());
}

void TProjectRunner::TImpl::AddSecret(const TQXPropertyValue& Value)
{
    std::vector<std::string> Values;
    if (const auto* Text = std::get_if<std::string>(&Value))
        Values.push_back(*Text);
    else if (const auto* Lines = std::get_if<std::vector<std::string>>(&Value))
        Values = *Lines;
    for (const std::string& Text : Values)
    {
        Events.Mask().Add(Text);
        AddExpanded(Text);
    }
}

void TProjectRunner::TImpl::AddExpanded(std::string_view Expression)
{
    const TExpansion Expansion = Variables.Expand(Expression);
    if (Expansion.Succeeded)
        Events.Mask().Add(Expansion.Text);
}

std::size_t TProjectRunner::TImpl::Begin()
{
    if (Options.From && Options.Resume)
        throw EUsageError("--from and --resume both say where to begin; give one of them");
    if (Options.From)
        return PlaceOfAction(Project, *Options.From);
    return Options.Resume ? PlaceToResume() : 0;
}

/// The noted action, also where the project has been changed around it.
std::size_t TProjectRunner::TImpl::PlaceToResume()
{
    const auto Place = Resume.Read();
    if (!Place)
    {
        ResumeLines.emplace_back("There is nothing to resume; this run begins with the first action");
        return 0;
    }
    TakeNotedSettings(*Place);
    const auto Same = [&](const TProjectAction& Action) { return Action.Name == Place->Name; };
    const auto Index = static_cast<std::size_t>(Place->Index) - 1;
    if (Index < Project.Actions.size() && Same(Project.Actions[Index]))
        return Index;
    for (std::size_t Other = 0; Other < Project.Actions.size(); ++Other)
        if (Same(Project.Actions[Other]))
            return Other;
    ResumeLines.push_back(fmt::format("The action \"{}\" at which the last run ended is not in the project any more; "
                                      "this run begins with the first action",
                                      Place->Name));
    return 0;
}

/// What is given anew holds. Without a value that was not noted the run would be another one.
void TProjectRunner::TImpl::TakeNotedSettings(const TResumeNote::TPlace& Place)
{
    const auto IsGiven = [Given = Options.Overrides](const std::string& Name) {
        return std::any_of(Given.begin(), Given.end(),
                           [&](const auto& Setting) { return Texts::Same(Setting.first, Name); });
    };
    for (const auto& [Name, Value] : Place.Settings)
        if (IsGiven(Name))
            ResumeLines.push_back(
                fmt::format("The variable \"{}\" has the value given now, not that of the last run", Name));
        else
            Options.Overrides.emplace_back(Name, Value);
    for (const std::string& Name : Place.Withheld)
        if (!IsGiven(Name))
            throw EUsageError(fmt::format("--resume: the value of the secret variable \"{0}\" was not noted; give it "
                                          "again with --set {0}=VALUE",
                                          Name));
}

/// No value that the log would mask is noted.
void TProjectRunner::TImpl::NoteSettings()
{
    const std::vector<std::string> Secrets = Project.AllSecrets();
    for (const auto& [Name, Value] : Options.Overrides)
    {
        std::string Buffer;
        const bool IsSecret = Events.Mask().Apply(Value, Buffer) != Value ||
                              std::any_of(Secrets.begin(), Secrets.end(), [&Same = Name](const std::string& Secret) {
                                  return Texts::Same(Secret, Same);
                              });
        if (IsSecret)
            Noted.Withheld.push_back(Name);
        else
            Noted.Settings.emplace_back(Name, Value);
    }
}

bool TProjectRunner::TImpl::ValidateAll()
{
    bool Valid = true;
    for (TProjectAction* Action : Selected)
        if (!Runtime.FileError() && IsWanted(*Action))
        {
            Valid = ValidateAction(*Action) && Valid;
            Valid = CheckScripts(*Action) && Valid;
        }
    return Valid;
}

/// Reports the scripts that cannot be parsed; one that many actions have got from the project only once.
bool TProjectRunner::TImpl::CheckScripts(TProjectAction& Action)
{
    bool Valid = true;
    for (const auto& Script : Action.Object->Scripts())
    {
        if (Script->Text().empty() || !ParsedScripts.insert(Script->Text()).second || !Runtime.ScriptEngine())
            continue;
        const auto Failure = Runtime.ScriptEngine()->Parse(*Script, Runtime.ScriptingServices());
        if (!Failure)
            continue;
        const THostFinding Place = Project.PlaceOf(&Action, "scripts", Script->Name(), std::max(Failure->Line, 1));
        Events.Handle(TValidationErrorEvent{Action.Index, Action.Type, Action.Name, Script->Name(), Failure->Reason,
                                            Place.File, Place.Line, Place.Column});
        Valid = false;
    }
    return Valid;
}

bool TProjectRunner::TImpl::ValidateAction(TProjectAction& Action)
{
    TFindings Findings(Events, Action);
    bool Valid = false;
    try
    {
        Valid = Action.Object->Validate(Findings);
    }
    catch (const std::exception& Error)
    {
        if (!Runtime.FileError())
            Findings.AddError("", fmt::format("The settings could not be checked : {}", Error.what()));
    }
    if (Runtime.FileError())
        return false;
    if (!Valid && Findings.Count() == 0)
        Findings.AddError("", "The settings of this action are not valid");
    return Findings.Count() == 0;
}

void TProjectRunner::TImpl::TellFileError()
{
    if (const EHostFileError* Error = Runtime.FileError())
        SendFindings<THostErrorEvent>(Error->Findings(), Events);
}

TRunResult TProjectRunner::TImpl::ValidateAndRun()
{
    if (Options.SkipValidation || ValidateAll())
    {
        RunAll();
        return Result();
    }
    Totals.Skipped = static_cast<int>(Selected.size());
    return Runtime.FileError() ? TRunResult::HostError : TRunResult::Invalid;
}

void TProjectRunner::TImpl::RunAll()
{
    for (const std::string& Line : ResumeLines)
        Tell(Line);
    if (Selected.empty() && !(Options.Only.empty() && Options.Groups.empty()))
        Tell("Nothing to run : the actions asked for are disabled or stand before the place to begin");
    for (TProjectAction* Action : Selected)
        RunOrSkip(*Action);
    if (Result() == TRunResult::Success)
        NoteSuccess();
}

void TProjectRunner::TImpl::RunOrSkip(TProjectAction& Action)
{
    if (Termination::Requested() != 0)
        Skip(Action, "the run was ended");
    else if (Stopped)
        Skip(Action, "an earlier action failed");
    else if (!IsWanted(Action))
        Skip(Action, fmt::format("when {}", Action.When));
    else
        RunAction(Action);
}

void TProjectRunner::TImpl::RunAction(TProjectAction& Action)
{
    Note(Action);
    Events.Handle(TActionStartedEvent{Action.Index, Action.Type, Action.Name});
    const TStopwatch Stopwatch;
    const TActionRun Run{.Index = Action.Index,
                         .TimeLimit = std::chrono::seconds(Action.TimeoutSeconds),
                         .Plan = Options.DryRun ? &Plan : nullptr,
                         .Secrets = &Events.Mask(),
                         .Arguments = Action.Arguments,
                         .FollowsIDE = Project.FollowsIDE};
    TRunContext Context(*Action.Object, Run, Variables, Events);
    const bool Succeeded = Execute(Action) && !Runtime.FileError();
    if (!Succeeded)
        Context.PassTermination();
    const TActionResult ActionResult = Context.WasTerminated() ? TActionResult::Terminated
                                       : !Succeeded            ? TActionResult::Failure
                                       : Options.DryRun        ? TActionResult::Planned
                                                               : TActionResult::Success;
    Count(Action, ActionResult);
    Events.Handle(TActionEndedEvent{Action.Index, Action.Name, ActionResult, Stopwatch.Seconds(), {}});
    if (ActionResult == TActionResult::Failure && !Stopped)
        NoteOutputs(Action, Run);
}

/// Remembers what a failed action would have made, as far as it knows that.
void TProjectRunner::TImpl::NoteOutputs(TProjectAction& Action, const TActionRun& Run)
try
{
    // What goes wrong with its settings has been told.
    TNoEvents Nowhere;
    const TRunContext Context(*Action.Object, Run, Variables, Nowhere);
    if (auto* Tool = dynamic_cast<TQXExecuteAbstractAction*>(Action.Object.get()))
        MissingOutputs.Add(Tool->GetOutputs());
}
catch (const std::exception&)
{
    return; // nothing is known
}

bool TProjectRunner::TImpl::Execute(TProjectAction& Action)
try
{
    if (const TActionTest Test = TestAction(Action.When, Variables); !Test.Reason.empty())
    {
        Events.Handle(TExpansionErrorEvent{Action.Index, "when", Test.Text, Test.Reason});
        return false;
    }
    return Action.Object->Execute();
}
catch (const std::exception& Error)
{
    // A wrong file of the host's ends the run, and is told once.
    if (Runtime.FileError())
        return false;
    Tell(fmt::format("The action ended with an error : {}", Error.what()), Action.Index);
    return false;
}

bool TProjectRunner::TImpl::IsWanted(const TProjectAction& Action) const
{
    const TActionTest Test = TestAction(Action.When, Variables);
    return Test.Holds || !Test.Reason.empty();
}

void TProjectRunner::TImpl::Skip(const TProjectAction& Action, std::string_view Reason)
{
    ++Totals.Skipped;
    Events.Handle(TActionEndedEvent{Action.Index, Action.Name, TActionResult::Skipped, 0, Reason});
}

void TProjectRunner::TImpl::Count(const TProjectAction& Action, TActionResult ActionResult)
{
    if (ActionResult == TActionResult::Success || ActionResult == TActionResult::Planned)
    {
        ++Totals.Succeeded;
        return;
    }
    ++Totals.Failed;
    if (Runtime.FileError() || (Action.OnFailure == TOnFailure::Stop && !Options.KeepGoing))
        Stopped = true;
}

TRunResult TProjectRunner::TImpl::Result() const
{
    if (Termination::Requested() != 0)
        return TRunResult::Terminated;
    if (Runtime.FileError())
        return TRunResult::HostError;
    return Totals.Failed > 0 ? TRunResult::Failure : TRunResult::Success;
}

/// Once an action has failed the note stays: that is where a run that begins again has to begin.
void TProjectRunner::TImpl::Note(const TProjectAction& Action)
{
    Noted.Index = Action.Index;
    Noted.Name = Action.Name;
    if (Totals.Failed == 0)
        TryNote([&] { Resume.Write(Noted); });
}

void TProjectRunner::TImpl::NoteSuccess()
{
    TryNote([&] { Resume.Remove(); });
}

template <typename TStep> void TProjectRunner::TImpl::TryNote(TStep Step)
try
{
    if (CanNote && !Options.DryRun)
        Step();
}
catch (const EFileError& Error)
{
    CanNote = false;
    const THostFinding Finding{
        .Message = fmt::format("The place of this run cannot be noted, --resume will not find it : {}", Error.what())};
    SendFindings<THostWarningEvent>(std::span(&Finding, 1), Events);
}

TProjectRunner::TProjectRunner(TProject& Project, TRunOptions Options, IRunEvents& Events)
    : FImpl(std::make_unique<TImpl>(Project, std::move(Options), Events))
{}

TProjectRunner::~TProjectRunner() = default;

TRunResult TProjectRunner::Validate()
{
    const TFolderScope Scope(FImpl->Project.Folder);
    SendFindings<THostWarningEvent>(FindUndefined(FImpl->Project, FImpl->Variables), FImpl->Events);
    if (FImpl->ValidateAll())
        return TRunResult::Success;
    FImpl->TellFileError();
    return FImpl->Runtime.FileError() ? TRunResult::HostError : TRunResult::Invalid;
}

TRunResult TProjectRunner::Run()
{
    const TFolderScope Scope(FImpl->Project.Folder);
    const TStopwatch Stopwatch;
    FImpl->Events.Handle(TRunStartedEvent{FImpl->Project.Name, static_cast<int>(FImpl->Selected.size())});
    const TRunResult Result = FImpl->ValidateAndRun();
    FImpl->TellFileError();
    FImpl->Totals.Result = Result;
    FImpl->Totals.DryRun = FImpl->Options.DryRun;
    FImpl->Totals.Seconds = Stopwatch.Seconds();
    FImpl->Events.Handle(FImpl->Totals);
    return Result;
}
