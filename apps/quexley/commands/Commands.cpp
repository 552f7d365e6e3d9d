#include "apps/quexley/commands/Commands.h"

namespace
{
constexpr TCommand Commands[] = {
    {"run", "Validate every enabled action, then run them in order", TCommandArguments::Run, &RunCommand},
    {"validate", "Only validate", TCommandArguments::Validate, &ValidateCommand},
    {"init", "Write a project for the solutions and projects that lie in a folder", TCommandArguments::Init,
     &InitCommand},
    {"tasks", "List the actions of the project", TCommandArguments::ProjectAndJson, &TasksCommand},
    {"list", "List the registered actions and options objects", TCommandArguments::Json, &ListCommand},
    {"show", "Show the properties of an action or options object", TCommandArguments::ClassAndJson, &ShowCommand},
    {"doctor", "Show what is installed, and which tools of the project are missing", TCommandArguments::Project,
     &DoctorCommand},
    {"completions", "Write the completions of a shell", TCommandArguments::Shell, &CompletionsCommand},
    {"options", "List, get or set options", TCommandArguments::Option, &OptionsCommand},
    {"dotnet", "List the .NET versions found and where", TCommandArguments::Json, &DotNetCommand},
    {"schema", "Write the JSON Schema of the project file", TCommandArguments::None, &SchemaCommand},
    {"pages", "Drive the property pages of a class by lines of JSON", TCommandArguments::Class, &PagesCommand, false,
     TPages::Registered},
    {"help", "Tell of an action: its properties, its command line, an example, its failures", TCommandArguments::Topic,
     &HelpCommand},
    {"help-pages", "Write the help of every action as a page", TCommandArguments::Folder, &HelpPagesCommand, true},
    {"manual", "Write the manual page", TCommandArguments::None, &ManualCommand, true},
};
} // namespace

std::span<const TCommand> ProgramCommands()
{
    return Commands;
}
