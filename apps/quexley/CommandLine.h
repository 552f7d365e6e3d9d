#pragma once

#include "apps/quexley/Arguments.h"
#include "apps/shared/HostSetup.h"

#include <span>
#include <string>
#include <string_view>

class TQXRuntime;

/// Which arguments a command takes besides those of every command.
enum class TCommandArguments {
    None,
    Run,
    Validate,
    Init,
    Project,
    ProjectAndJson,
    Json,
    Class,
    ClassAndJson,
    Option,
    Shell,
    Topic,
    Folder
};

/// A command of the program.
struct TCommand
{
    std::string_view Name;
    std::string_view Description;
    TCommandArguments Arguments;
    /// Gives the exit code. Throws EHostFileError, EUsageError, EFileError.
    int (*Execute)(const TArguments& Arguments, TQXRuntime& Runtime);
    bool IsHidden = false; ///< from help and completions: for the build alone
    TPages Pages = TPages::None;
};

/// What the command line asks for: a command, or, without one, a text that answers it.
struct TParsedCommandLine
{
    const TCommand* Command = nullptr;
    TArguments Arguments;
    std::string Answer;
};

/// The log format that the words ask for, as far as they can be understood: for errors of the command line itself.
[[nodiscard]] TLogFormat WantedFormat(int Count, const char* const* Words);

/// Throws EUsageError for what is unknown, missing or malformed.
[[nodiscard]] TParsedCommandLine ParseCommandLine(int Count, const char* const* Words,
                                                  std::span<const TCommand> Commands);
