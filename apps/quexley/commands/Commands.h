// The commands of the program. Each gives the exit code and throws EHostFileError, EUsageError or EFileError.
#pragma once

#include "apps/quexley/Arguments.h"

class TQXRuntime;

int RunCommand(const TArguments& Arguments, TQXRuntime& Runtime);
int ValidateCommand(const TArguments& Arguments, TQXRuntime& Runtime);
int ListCommand(const TArguments& Arguments, TQXRuntime& Runtime);
int ShowCommand(const TArguments& Arguments, TQXRuntime& Runtime);
int OptionsCommand(const TArguments& Arguments, TQXRuntime& Runtime);
int DotNetCommand(const TArguments& Arguments, TQXRuntime& Runtime);
int SchemaCommand(const TArguments& Arguments, TQXRuntime& Runtime);
