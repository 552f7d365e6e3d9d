#include "apps/quexley/RunLog.h"
#include "apps/quexley/commands/Commands.h"
#include "apps/quexley/commands/LogFile.h"
#include "platform/Paths.h"
#include "platform/Processes.h"
#include "runtime/ProjectRunner.h"
#include "runtime/Runtime.h"
#include "runtime/log/HostEvents.h"
#include "runtime/options/UnknownOptions.h"

#include <exception>
#include <string>
#include <utility>
#include <vector>

namespace
{
constexpr int SignalExitCode = 128;

int ExitCode(TRunResult Result)
{
    switch (Result)
    {
    case TRunResult::Success:
        return 0;
    case TRunResult::Failure:
        return 1;
    case TRunResult::Invalid:
        return 3;
    case TRunResult::HostError:
        return 2;
    case TRunResult::Terminated:
        break;
    }
    return SignalExitCode + Termination::Requested();
}

/// The files that say what a run does.
std::vector<std::string> InputsOf(const TArguments& Arguments, const TProject& Project, const TOptionsFile& Options)
{
    std::vector<std::string> Result = Project.FileNames();
    Result.insert(Result.end(), {Options.FileName(), Arguments.RegistryFile});
    Result.insert(Result.end(), Arguments.PackageFiles.begin(), Arguments.PackageFiles.end());
    if (!Options.Host().Registry.empty())
        Result.push_back(Paths::Expand(Options.Host().Registry, Paths::Folder(Options.FileName())));
    return Result;
}

/// Begins a log, does Work with the project's runner, and ends the log, also when Work throws: what was said until
/// then comes before the reason that the program gives.
template <typename TWork> TRunResult WithLog(const TArguments& Arguments, TQXRuntime& Runtime, TWork Work)
{
    TProject Project = TProject::Load(Arguments.Project);
    // A file that cannot be read is told before anything runs.
    std::vector<THostFinding> Warnings;
    if (!Project.Actions.empty())
        Warnings = FindUnknownOptions(Runtime);
    for (THostFinding& Warning : Runtime.TakeWarnings())
        Warnings.push_back(std::move(Warning));
    if (!Arguments.LogFile.empty())
        CheckLogFile(Arguments.LogFile, InputsOf(Arguments, Project, Runtime.Options()), Project);
    TRunLog Log(Arguments);
    try
    {
        SendFindings<THostWarningEvent>(Warnings, Log.Events());
        TProjectRunner Runner(Project, Arguments.Run, Log.Events());
        const TRunResult Result = Work(Runner, Log.Events());
        Log.Finish();
        if (Termination::Requested() != 0)
            return TRunResult::Terminated;
        return Log.HasFailed() ? TRunResult::Failure : Result;
    }
    catch (const std::exception&)
    {
        Log.Finish();
        throw;
    }
}
} // namespace

int RunCommand(const TArguments& Arguments, TQXRuntime& Runtime)
{
    return ExitCode(WithLog(Arguments, Runtime, [](TProjectRunner& Runner, IRunEvents&) {
        Termination::CatchSignals(); // from here on there is something to be put in order before the end
        return Runner.Run();
    }));
}

int ValidateCommand(const TArguments& Arguments, TQXRuntime& Runtime)
{
    return ExitCode(WithLog(Arguments, Runtime, [&](TProjectRunner& Runner, IRunEvents& Events) {
        const TRunResult Result = Runner.Validate();
        if (Result == TRunResult::Success && Arguments.Format != TLogFormat::Json)
            Events.Handle(TMessageEvent{0, "The project is valid."});
        return Result;
    }));
}
