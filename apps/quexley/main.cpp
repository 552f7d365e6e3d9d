#include "apps/quexley/Answer.h"
#include "apps/quexley/CommandLine.h"
#include "apps/quexley/HostSetup.h"
#include "apps/quexley/commands/Commands.h"
#include "platform/Console.h"
#include "platform/Files.h"
#include "platform/Processes.h"
#include "platform/Stack.h"
#include "runtime/HostErrors.h"

#include <array>
#include <cstdio>
#include <exception>
#include <string>
#include <string_view>

namespace
{
constexpr int WrongUsage = 2;

constexpr std::array<TCommand, 7> Commands = {{
    {"run", "Validate every enabled action, then run them in order", TCommandArguments::Project, &RunCommand},
    {"validate", "Only validate", TCommandArguments::Project, &ValidateCommand},
    {"list", "List the registered actions and options objects", TCommandArguments::Json, &ListCommand},
    {"show", "Show the properties of an action or options object", TCommandArguments::ClassAndJson, &ShowCommand},
    {"options", "List, get or set options", TCommandArguments::Option, &OptionsCommand},
    {"dotnet", "List the .NET versions found and where", TCommandArguments::Json, &DotNetCommand},
    {"schema", "Write the JSON Schema of the project file", TCommandArguments::None, &SchemaCommand},
}};

void WriteError(std::string_view Text)
{
    std::fwrite(Text.data(), 1, Text.size(), stderr);
    std::fputc('\n', stderr);
}

/// Whether a line names a place in a file, as other programs that read messages know it.
bool HasPlace(std::string_view Line)
{
    constexpr std::string_view Digits = "0123456789";
    for (std::size_t Colon = Line.find(':'); Colon != std::string_view::npos; Colon = Line.find(':', Colon + 1))
    {
        const std::size_t End = Line.find_first_not_of(Digits, Colon + 1);
        if (End != std::string_view::npos && End > Colon + 1 && Line[End] == ':')
            return true;
    }
    return false;
}

int Report(std::string_view Message)
{
    WriteError(HasPlace(Message) ? std::string(Message) : "quexley: " + std::string(Message));
    return WrongUsage;
}

int RunProgram(int Count, const char* const* Words)
{
    const TParsedCommandLine CommandLine = ParseCommandLine(Count, Words, Commands);
    if (!CommandLine.Command)
        return WriteAnswer(CommandLine.Answer);
    THostSetup Host(CommandLine.Arguments);
    const int ExitCode = CommandLine.Command->Execute(CommandLine.Arguments, Host.Runtime());
    if (const EHostFileError* Error = Host.Runtime().FileError())
        throw EHostFileError(*Error);
    return ExitCode;
}
} // namespace

int main(int Count, char** Words)
try
{
    Console::OpenMissingStreams();
    Termination::EndOnSignals();
    int ExitCode = 0;
    WithRoomForCalls([&] { ExitCode = RunProgram(Count, Words); });
    return ExitCode;
}
catch (const EClosedPipe&)
{
    Console::EndByClosedPipe();
}
catch (const std::exception& Error)
{
    return Report(Error.what());
}
