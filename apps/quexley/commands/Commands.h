// The commands of the program. Each gives the exit code and throws EHostFileError, EUsageError or EFileError.
#pragma once

#include "apps/quexley/Arguments.h"
#include "apps/quexley/CommandLine.h"

#include <span>

class TQXRuntime;

int RunCommand(const TArguments& Arguments, TQXRuntime& Runtime);
int ValidateCommand(const TArguments& Arguments, TQXRuntime& Runtime);
int InitCommand(const TArguments& Arguments, TQXRuntime& Runtime);
int TasksCommand(const TArguments& Arguments, TQXRuntime& Runtime);
int ListCommand(const TArguments& Arguments, TQXRuntime& Runtime);
int ShowCommand(const TArguments& Arguments, TQXRuntime& Runtime);
int DoctorCommand(const TArguments& Arguments, TQXRuntime& Runtime);
int CompletionsCommand(const TArguments& Arguments, TQXRuntime& Runtime);
int OptionsCommand(const TArguments& Arguments, TQXRuntime& Runtime);
int DotNetCommand(const TArguments& Arguments, TQXRuntime& Runtime);
int SchemaCommand(const TArguments& Arguments, TQXRuntime& Runtime);
int PagesCommand(const TArguments& Arguments, TQXRuntime& Runtime);
int HelpCommand(const TArguments& Arguments, TQXRuntime& Runtime);
int HelpPagesCommand(const TArguments& Arguments, TQXRuntime& Runtime);
int ManualCommand(const TArguments& Arguments, TQXRuntime& Runtime);

/// All of them, in the order of the help.
[[nodiscard]] std::span<const TCommand> ProgramCommands();
