#include "runtime/actions/Process.h"

#include "host/QXFiles.h"
#include "platform/CommandLines.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "runtime/Runtime.h"
#include "runtime/actions/RunContext.h"

#include <fmt/format.h>

#include <optional>

namespace
{
constexpr int TimedOutExitCode = 124;
constexpr int SignalExitCode = 128;

/// Passes the tool's lines on to whoever asked for them.
class TEventListener final : public IProcessListener
{
public:
    TEventListener(IQXProcess& Process, IQXProcessEvents* Events) : FProcess(Process), FEvents(Events) {}
    void OnStdOutLine(std::string_view Line) override
    {
        if (FEvents)
            FEvents->OnStdOutData(FProcess, Line);
    }
    void OnStdErrLine(std::string_view Line) override
    {
        if (FEvents)
            FEvents->OnStdErrData(FProcess, Line);
    }
    void OnTick() override
    {
        if (TRunContext* Context = TQXRuntime::RunningAction())
            Context->Tick();
    }
    [[nodiscard]] std::size_t PlaceToCut(std::string_view Line, std::size_t Length) const override
    {
        return TRunContext::PlaceToCut(Line, Length);
    }

private:
    IQXProcess& FProcess;
    IQXProcessEvents* FEvents;
};

/// Keeps the tool's lines.
class TLineCollector final : public IQXProcessEvents
{
public:
    explicit TLineCollector(TStringList& Lines) : FLines(Lines) {}
    void OnStdOutData(IQXProcess&, std::string_view Data) override { FLines.Add(std::string(Data)); }
    void OnStdErrData(IQXProcess&, std::string_view Data) override { FLines.Add(std::string(Data)); }

private:
    TStringList& FLines;
};

/// The path as it is on disk, absolute: a relative one would count from the folder in which the tool starts. What
/// is not there stays as it is.
std::string Locate(const std::string& Path)
{
    const std::string Found = QXFiles().Find(Path);
    return Found.empty() ? Path : Paths::Expand(Found, Files::CurrentFolder());
}

/// The text of the file that the first argument of the form @FILE names.
std::optional<std::string> ResponseFileText(const TProcessStart& Start)
{
    for (const std::string& Argument : CommandLines::Split(Start.Arguments))
    {
        if (!Argument.starts_with('@'))
            continue;
        const std::string File = Paths::Join(Start.Folder, std::string_view(Argument).substr(1));
        if (QXFiles().FileExists(File))
            return Texts::Decode(QXFiles().Read(File));
    }
    return std::nullopt;
}

TProcessStartedEvent StartEvent(const TProcessStart& Start)
{
    TProcessStartedEvent Event;
    Event.Executable = Start.Executable;
    Event.Folder = Start.Folder;
    Event.Arguments = Start.Arguments;
    return Event;
}

TProcessEndedEvent EndEvent(const TProcessEnd& End)
{
    TProcessEndedEvent Event;
    Event.TimedOut = End.TimedOut;
    if (!End.TimedOut && !End.Signal.empty())
        Event.Signal = End.Signal;
    else if (!End.TimedOut)
        Event.ExitCode = End.ExitCode;
    return Event;
}
} // namespace

std::unique_ptr<IQXProcess> CreateQXProcess()
{
    return std::make_unique<TQXProcess>();
}

int TQXProcess::Run()
{
    TEventListener Listener(*this, FEvents);
    return Run(Listener);
}

int TQXProcess::RunCaptured(TStringList& Lines)
{
    TLineCollector Collector(Lines);
    TEventListener Listener(*this, &Collector);
    return Run(Listener);
}

int TQXProcess::Run(IProcessListener& Listener)
try
{
    FEnd = {};
    TRunContext* Context = TQXRuntime::RunningAction();
    if (Termination::Requested() != 0)
    {
        FEnd.Terminated = true;
        return ExitCode();
    }
    const TProcessStart Start = Prepare();
    if (Context && Context->IsDryRun())
        return Show(Start);
    if (Context)
        Context->ProcessStarted(StartEvent(Start));
    FEnd = RunProcess(ThroughRuntime(Start), Listener);
    ReportEnd(Start);
    return ExitCode();
}
catch (const EProcessStartError& Error)
{
    throw EQXProcessError(Error.what());
}

TProcessStart TQXProcess::Prepare() const
{
    TProcessStart Start;
    Start.Executable = Locate(FExecutable);
    Start.Folder = Paths::WithoutTrailing(FFolder.empty() ? Files::CurrentFolder() : Locate(FFolder));
    Start.Arguments = FArguments;
    Start.HideWindow = FHideWindow;
    if (const TRunContext* Context = TQXRuntime::RunningAction())
    {
        Start.TimeLimit = Context->Run().TimeLimit;
        Start.TickInterval = std::chrono::seconds(1);
    }
    return Start;
}

int TQXProcess::Show(const TProcessStart& Start)
{
    TProcessStartedEvent Event = StartEvent(Start);
    const std::optional<std::string> ResponseFile = ResponseFileText(Start);
    Event.DryRun = true;
    Event.ResponseFile = ResponseFile;
    TQXRuntime::RunningAction()->ProcessStarted(Event);
    return 0;
}

void TQXProcess::ReportEnd(const TProcessStart& Start)
{
    TRunContext* Context = TQXRuntime::RunningAction();
    if (!Context)
        return;
    Context->ProcessEnded(EndEvent(FEnd));
    if (FEnd.TimedOut)
        Context->SendMessage(
            fmt::format("The tool was ended after its time limit of {} seconds", Start.TimeLimit.count() / 1000));
    else if (!FEnd.Signal.empty() && !FEnd.Terminated)
        Context->SendMessage(fmt::format("The tool was ended by the signal {}", FEnd.Signal));
}

int TQXProcess::ExitCode() const
{
    if (FEnd.TimedOut)
        return TimedOutExitCode;
    if (FEnd.SignalNumber != 0)
        return SignalExitCode + FEnd.SignalNumber;
    // Whatever a tool says that was asked to end, its work is not done.
    return FEnd.Terminated ? SignalExitCode + Termination::Requested() : FEnd.ExitCode;
}
