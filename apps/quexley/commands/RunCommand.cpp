#include "apps/quexley/Answer.h"
#include "apps/quexley/commands/Commands.h"
#include "apps/quexley/commands/LogFile.h"
#include "apps/quexley/writers/GitHubWriter.h"
#include "apps/quexley/writers/JsonWriter.h"
#include "apps/quexley/writers/TeeWriter.h"
#include "apps/quexley/writers/TextWriter.h"
#include "platform/Console.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Processes.h"
#include "runtime/ProjectRunner.h"
#include "runtime/Runtime.h"

#include <exception>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

namespace
{
constexpr int SignalExitCode = 128;

bool IsSet(const std::string& Variable)
{
    std::string Value;
    return Environment::Get(Variable, Value) && !Value.empty();
}

bool IsForcedOff(const std::string& Variable)
{
    std::string Value;
    return Environment::Get(Variable, Value) && Value == "0";
}

/// A terminal that understands escape sequences.
bool IsCapableTerminal()
{
    std::string Kind;
    return Console::IsTerminal() && Environment::Get("TERM", Kind) && Kind != "dumb";
}

bool WantsColour(TColourChoice Choice)
{
    if (Choice != TColourChoice::Auto)
        return Choice == TColourChoice::Always;
    if (IsSet("NO_COLOR"))
        return false;
    if (IsSet("FORCE_COLOR"))
        return !IsForcedOff("FORCE_COLOR");
    return IsCapableTerminal();
}

/// The log of a run: the format that was asked for on standard output and, if asked for, a copy as text in a file.
class TLog
{
public:
    /// Throws EFileError for a log file that cannot be written.
    explicit TLog(const TArguments& Arguments);
    [[nodiscard]] IRunEvents& Events() { return FEvents; }
    /// Throws EClosedPipe or EFileError if not all of it could be written.
    void Finish();

private:
    [[nodiscard]] std::unique_ptr<IRunEvents> MakeWriter(const TArguments& Arguments);

    TStandardOutput FStandardOutput;
    std::string FLogFile;
    std::unique_ptr<TFileOutput> FCopy;
    TTeeWriter FEvents;
};

TLog::TLog(const TArguments& Arguments) : FLogFile(Arguments.LogFile)
{
    if (!FLogFile.empty())
        FCopy = std::make_unique<TFileOutput>(FLogFile);
    FEvents.Add(MakeWriter(Arguments));
    // The file holds what a quiet run does not show: that is what people look for in it afterwards.
    if (FCopy)
        FEvents.Add(std::make_unique<TTextWriter>(*FCopy, TTextStyle{.Verbose = Arguments.Verbose}));
}

std::unique_ptr<IRunEvents> TLog::MakeWriter(const TArguments& Arguments)
{
    if (Arguments.Format == TLogFormat::Json)
        return std::make_unique<TJsonWriter>(FStandardOutput);
    TTextStyle Style;
    Style.Colour = WantsColour(Arguments.Colour);
    Style.Quiet = Arguments.Quiet;
    Style.Verbose = Arguments.Verbose;
    if (Arguments.Format == TLogFormat::GitHub)
        return std::make_unique<TGitHubWriter>(FStandardOutput, Style);
    Style.LiveLine = IsCapableTerminal();
    return std::make_unique<TTextWriter>(FStandardOutput, Style);
}

void TLog::Finish()
{
    FStandardOutput.Flush();
    if (FCopy)
        FCopy->Flush();
    // Whoever ended the run does not ask any more what became of its log.
    if (FStandardOutput.Failure() == std::errc::broken_pipe || Termination::Requested() == 0)
        CheckWritten(FStandardOutput.Failure());
    if (FCopy && FCopy->Failure() && Termination::Requested() == 0)
        throw EFileError(FLogFile, FCopy->Failure().message());
}

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
    case TRunResult::Terminated:
        break;
    }
    return SignalExitCode + Termination::Requested();
}

/// The files that say what a run does.
std::vector<std::string> InputsOf(const TArguments& Arguments, const TProject& Project, const TOptionsFile& Options)
{
    std::vector<std::string> Result = {Project.File, Options.FileName(), Arguments.RegistryFile, Arguments.PackageFile};
    if (!Options.Host().Registry.empty())
        Result.push_back(Paths::Expand(Options.Host().Registry, Paths::Folder(Options.FileName())));
    return Result;
}

/// Begins a log, does Work with the project's runner, and ends the log, also when Work throws: what was said until
/// then comes before the reason that the program gives.
template <typename TWork> TRunResult WithLog(const TArguments& Arguments, TQXRuntime& Runtime, TWork Work)
{
    TProject Project = TProject::Load(Arguments.Project);
    if (!Arguments.LogFile.empty())
        CheckLogFile(Arguments.LogFile, InputsOf(Arguments, Project, Runtime.Options()), Project);
    TLog Log(Arguments);
    try
    {
        TProjectRunner Runner(Project, Arguments.Run, Log.Events());
        const TRunResult Result = Work(Runner, Log.Events());
        Log.Finish();
        return Termination::Requested() != 0 ? TRunResult::Terminated : Result;
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
