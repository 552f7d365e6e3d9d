#include "apps/quexley/Answer.h"
#include "apps/quexley/CommandLine.h"
#include "apps/quexley/RunLog.h"
#include "apps/quexley/commands/Commands.h"
#include "apps/shared/HostSetup.h"
#include "platform/Console.h"
#include "platform/Processes.h"
#include "platform/Stack.h"
#include "runtime/HostErrors.h"
#include "runtime/log/CleanEvents.h"
#include "runtime/log/HostEvents.h"

#include <exception>
#include <span>
#include <vector>

namespace
{
constexpr int WrongUsage = 2;

/// Tells of the findings in the format that was asked for, and on standard error.
template <typename TEvent> int Report(TLogFormat Format, std::span<const THostFinding> Findings)
{
    TArguments Arguments;
    Arguments.Format = Format;
    TRunLog Log(Arguments);
    TCleanEvents Events(Log.Events());
    SendFindings<TEvent>(Findings, Events);
    Log.Finish();
    return WrongUsage;
}

/// Warns of what the command itself has not told, after it or before the error that ends it.
int Execute(const TParsedCommandLine& CommandLine, TQXRuntime& Runtime)
{
    const auto Warn = [&] {
        const std::vector<THostFinding> Warnings = Runtime.TakeWarnings();
        if (!Warnings.empty())
            Report<THostWarningEvent>(CommandLine.Arguments.Format, Warnings);
    };
    try
    {
        const int ExitCode = CommandLine.Command->Execute(CommandLine.Arguments, Runtime);
        Warn();
        return ExitCode;
    }
    catch (const EClosedPipe&)
    {
        throw;
    }
    catch (const std::exception&)
    {
        Warn();
        throw;
    }
}

int RunProgram(int Count, const char* const* Words)
{
    const TParsedCommandLine CommandLine = ParseCommandLine(Count, Words, ProgramCommands());
    if (!CommandLine.Command)
        return WriteAnswer(CommandLine.Answer);
    const std::vector<std::string>& Operands = CommandLine.Arguments.Words;
    const bool Stores = !Operands.empty() && Operands[0] == "set";
    THostSetup Host(CommandLine.Arguments, Stores ? TNamedOptions::MayBeMissing : TNamedOptions::MustExist,
                    CommandLine.Command->Pages);
    const int ExitCode = Execute(CommandLine, Host.Runtime());
    const EHostFileError* Error = Host.Runtime().FileError();
    if (Error && ExitCode == 0)
        throw EHostFileError(*Error);
    return ExitCode;
}

int RunAndReport(int Count, const char* const* Words)
try
{
    return RunProgram(Count, Words);
}
catch (const EClosedPipe&)
{
    throw;
}
catch (const EHostFileError& Error)
{
    return Report<THostErrorEvent>(WantedFormat(Count, Words), Error.Findings());
}
catch (const std::exception& Error)
{
    const THostFinding Finding{.Message = Error.what()};
    return Report<THostErrorEvent>(WantedFormat(Count, Words), std::span(&Finding, 1));
}
} // namespace

int main(int Count, char** Words)
try
{
    Console::OpenMissingStreams();
    Termination::EndOnSignals();
    int ExitCode = 0;
    WithRoomForCalls([&] { ExitCode = RunAndReport(Count, Words); });
    return ExitCode;
}
catch (const EClosedPipe&)
{
    Console::EndByClosedPipe();
}
catch (const std::exception&)
{
    // Standard output cannot be written; standard error has got all that there was to say, or cannot be written either.
    return WrongUsage;
}
