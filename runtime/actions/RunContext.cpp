#include "runtime/actions/RunContext.h"

#include "platform/Processes.h"
#include "platform/Text.h"
#include "runtime/Runtime.h"
#include "runtime/actions/PlannedFiles.h"
#include "runtime/scripting/ScriptEngine.h"
#include "runtime/services/DiskFiles.h"
#include "runtime/services/ScriptingServices.h"

#include <fmt/format.h>

namespace
{
std::string WhyEmpty(std::string_view Expression)
{
    const std::vector<std::string_view> Names = VariablesIn(Expression);
    return Names.empty() ? "the result is empty"
                         : fmt::format("the result is empty, as the variable \"{}\" is", Names.front());
}
} // namespace

TRunContext::TRunContext(TCustomQXAction& Action, TActionRun Run, const TVariables& Variables, IRunEvents& Events)
    : FAction(Action), FRun(std::move(Run)), FVariables(Variables), FEvents(Events), FRuntime(TQXRuntime::Current()),
      FOuter(FRuntime.SetRunningAction(this))
{}

TRunContext::~TRunContext()
{
    FRuntime.SetRunningAction(FOuter);
}

std::size_t TRunContext::PlaceToCut(std::string_view Text, std::size_t Length)
{
    const TRunContext* Context = TQXRuntime::RunningAction();
    return Context && Context->FRun.Secrets ? Context->FRun.Secrets->PlaceToCut(Text, Length) : Length;
}

std::string_view TRunContext::Shorten(std::string_view Text, std::size_t Length)
{
    return Text.size() > Length ? Text.substr(0, PlaceToCut(Text, Texts::CutLength(Text, Length))) : Text;
}

IQXFiles& TRunContext::Files() const
{
    return FRun.Plan ? *FRun.Plan : DiskFiles();
}

void TRunContext::SendMessage(std::string_view Text)
{
    FEvents.Handle(TMessageEvent{FRun.Index, Text});
    PassTermination();
}

void TRunContext::SendOutput(TQXOutputStream Stream, std::string_view Line)
{
    FEvents.Handle(TOutputEvent{FRun.Index, Stream, Line, {}});
}

bool TRunContext::TryExpandExpression(std::string_view Label, std::string_view Expression, std::string& Value,
                                      bool Required)
{
    PassTermination();
    TExpansion Expansion = FVariables.Expand(Expression);
    if (Expansion.Succeeded && Required && Expansion.Text.empty())
        Expansion = {false, {}, WhyEmpty(Expression)};
    if (Expansion.Succeeded)
        Value = std::move(Expansion.Text);
    else
        FEvents.Handle(TExpansionErrorEvent{FRun.Index, Label, Expression, Expansion.Reason});
    return Expansion.Succeeded;
}

std::string TRunContext::ExpandExpression(std::string_view Expression, bool Report)
{
    PassTermination();
    TExpansion Expansion = FVariables.Expand(Expression);
    if (Expansion.Succeeded)
        return std::move(Expansion.Text);
    if (Report)
        SendMessage(fmt::format("Could not expand \"{}\" : {}", Expression, Expansion.Reason));
    return std::string(Expression);
}

bool TRunContext::ExecuteScript(TQXScript& Script)
{
    PassTermination();
    if (Script.Text().empty())
        return true;
    IScriptEngine* Engine = FRuntime.ScriptEngine();
    const auto Failure = Engine ? Engine->Run(Script, FRuntime.ScriptingServices())
                                : TScriptFailure{0, "this build of the host has no script engine"};
    if (Failure)
        FEvents.Handle(TScriptErrorEvent{FRun.Index, Script.Name(),
                                         Failure->Line > 0 ? std::optional(Failure->Line) : std::nullopt,
                                         Failure->Reason});
    return !Failure;
}

void TRunContext::ProcessStarted(TProcessStartedEvent Start)
{
    Start.Index = FRun.Index;
    FEvents.Handle(Start);
}

void TRunContext::ProcessEnded(TProcessEndedEvent End)
{
    End.Index = FRun.Index;
    FEvents.Handle(End);
    PassTermination();
}

void TRunContext::Tick()
{
    FEvents.Handle(TTickEvent{});
    PassTermination();
}

void TRunContext::PassTermination()
{
    if (FTerminated || Termination::Requested() == 0)
        return;
    FTerminated = true;
    if (FAction.CanTerminate())
        FAction.TerminateAction();
}
