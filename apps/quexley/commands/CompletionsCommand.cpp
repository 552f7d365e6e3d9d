#include "apps/quexley/Answer.h"
#include "apps/quexley/Syntax.h"
#include "apps/quexley/commands/Commands.h"
#include "platform/Text.h"
#include "runtime/HostErrors.h"
#include "runtime/NearestName.h"

#include <fmt/format.h>

#include <array>

namespace
{
using TSyntax = std::vector<TCommandSyntax>;

/// The classes of actions, as the shells ask the program for them.
constexpr std::string_view ListClasses = "quexley list 2>/dev/null | sed -n 's/^  \\(T[A-Za-z0-9]*\\).*/\\1/p'";

std::string Joined(const std::vector<std::string>& Words, std::string_view Between = " ")
{
    return fmt::format("{}", fmt::join(Words, Between));
}

std::vector<std::string> CommandNames(const TSyntax& Syntax)
{
    std::vector<std::string> Result;
    for (std::size_t Index = 1; Index < Syntax.size(); ++Index)
        Result.push_back(Syntax[Index].Name);
    return Result;
}

std::vector<std::string> OptionNames(const TCommandSyntax& Command)
{
    std::vector<std::string> Result;
    for (const TOptionSyntax& Option : Command.Options)
    {
        if (!Option.Short.empty())
            Result.push_back(Option.Short);
        Result.push_back(Option.Long);
    }
    return Result;
}

/// What the operand of a command may be besides a file: a command of the shell that lists it, or words.
std::string OperandWords(const TCommandSyntax& Command)
{
    if (Command.Name == "show" || Command.Name == "help")
        return fmt::format("$({})", ListClasses);
    if (Command.Name == "completions")
        return "bash zsh fish";
    return Command.Name == "options" ? "list get set" : "";
}

/// Each option with a value once: several commands share most.
std::vector<const TOptionSyntax*> OptionsWithValues(const TSyntax& Syntax)
{
    std::vector<const TOptionSyntax*> Result;
    for (const TCommandSyntax& Command : Syntax)
        for (const TOptionSyntax& Option : Command.Options)
            if (!Option.Form.empty() && std::none_of(Result.begin(), Result.end(), [&](const TOptionSyntax* Known) {
                    return Known->Long == Option.Long;
                }))
                Result.push_back(&Option);
    return Result;
}

std::string BashCompletions(const TSyntax& Syntax)
{
    std::string Text = "# Completions of bash for quexley: source <(quexley completions bash)\n"
                       "_quexley()\n{\n"
                       "    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}\n"
                       "    local command= word words= files=yes\n"
                       "    COMPREPLY=()\n"
                       "    for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
                       "        case $word in\n        ";
    Text += Joined(CommandNames(Syntax), " | ") + ") command=$word; break ;;\n        esac\n    done\n"
                                                  "    case $previous in\n";
    for (const TOptionSyntax* Option : OptionsWithValues(Syntax))
    {
        const std::string Short = Option->Short.empty() ? "" : " | " + Option->Short;
        const std::string Words = Option->Form.starts_with("FILE") ? "-f" : "-W \"" + Joined(Option->Choices()) + '"';
        Text += fmt::format("    {}{}) mapfile -t COMPREPLY < <(compgen {} -- \"$current\"); return ;;\n", Option->Long,
                            Short, Words);
    }
    Text += fmt::format("    esac\n    case $command in\n    '') words=\"{} {}\" files= ;;\n",
                        Joined(CommandNames(Syntax)), Joined(OptionNames(Syntax.front())));
    for (std::size_t Index = 1; Index < Syntax.size(); ++Index)
    {
        const TCommandSyntax& Command = Syntax[Index];
        const std::string Operand = OperandWords(Command);
        Text += fmt::format("    {}) words=\"{}\"", Command.Name, Joined(OptionNames(Command)));
        if (!Operand.empty() || Command.Operands.empty())
            Text += " files=";
        if (!Operand.empty())
            Text += fmt::format("; [[ $current == -* ]] || words+=\" {}\"", Operand);
        Text += " ;;\n";
    }
    return Text + "    esac\n"
                  "    mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$current\")\n"
                  "    [[ -n $files && $current != -* ]] && mapfile -t COMPREPLY < <(compgen -f -- \"$current\")\n"
                  "    return 0\n}\n"
                  "complete -o filenames -F _quexley quexley\n";
}

/// Within single quotes, and without the signs that mean something to `_arguments`.
std::string ZshText(std::string_view Text)
{
    std::string Result = Texts::Replace(Text, "'", "'\\''");
    for (const std::string_view Sign : {"[", "]", ":"})
        Result = Texts::Replace(Result, Sign, "\\" + std::string(Sign));
    return Result;
}

std::string ZshOptions(const TCommandSyntax& Command)
{
    std::string Text;
    for (const TOptionSyntax& Option : Command.Options)
        for (const std::string& Name : {Option.Long, Option.Short})
        {
            if (Name.empty())
                continue;
            std::string Value;
            if (!Option.Form.empty())
                Value = ':' + ZshText(Option.Form) + ':';
            if (Option.Form.starts_with("FILE"))
                Value += "_files";
            else if (const auto Choices = Option.Choices(); !Choices.empty())
                Value += '(' + Joined(Choices) + ')';
            Text += fmt::format(" \\\n            '*{}[{}]{}'", Name, ZshText(Option.Description), Value);
        }
    return Text;
}

std::string ZshCompletions(const TSyntax& Syntax)
{
    std::string Text = "#compdef quexley\n"
                       "# Completions of zsh for quexley: quexley completions zsh > a folder of $fpath/_quexley\n"
                       "_quexley()\n{\n    local state\n    local -a commands=(\n";
    for (std::size_t Index = 1; Index < Syntax.size(); ++Index)
        Text += fmt::format("        '{}:{}'\n", Syntax[Index].Name, ZshText(Syntax[Index].Description));
    Text += "    )\n    _arguments -C" + ZshOptions(Syntax.front()) +
            " \\\n            '1:command:->command' '*::argument:->argument'\n"
            "    case $state in\n    command) _describe -t commands command commands ;;\n"
            "    argument)\n        case $words[1] in\n";
    for (std::size_t Index = 1; Index < Syntax.size(); ++Index)
    {
        const TCommandSyntax& Command = Syntax[Index];
        const std::string Operand = OperandWords(Command);
        const std::string Action = Operand.empty() ? "_files" : '(' + Operand + ')';
        Text += fmt::format("        {})\n            _arguments{}", Command.Name, ZshOptions(Command));
        for (const TOptionSyntax& Form : Command.Operands)
            Text += fmt::format(" \\\n            \"*:{}:{}\"", Form.Form, Action);
        Text += " ;;\n";
    }
    return Text + "        esac ;;\n    esac\n}\n"
                  "if [ \"$funcstack[1]\" = _quexley ]; then _quexley \"$@\"; else compdef _quexley quexley; fi\n";
}

std::string FishText(std::string_view Text)
{
    return '\'' + Texts::Replace(Texts::Replace(Text, "\\", "\\\\"), "'", "\\'") + '\'';
}

std::string FishOptions(const TCommandSyntax& Command, std::string_view Condition)
{
    std::string Text;
    for (const TOptionSyntax& Option : Command.Options)
    {
        Text += fmt::format("complete -c quexley -n {} -l {}", FishText(Condition), Option.Long.substr(2));
        if (!Option.Short.empty())
            Text += " -s " + Option.Short.substr(1);
        if (Option.Form.starts_with("FILE"))
            Text += " -r -F";
        else if (!Option.Form.empty())
            Text += " -x -a " + FishText(Joined(Option.Choices()));
        Text += " -d " + FishText(Option.Description) + '\n';
    }
    return Text;
}

std::string FishCompletions(const TSyntax& Syntax)
{
    constexpr std::string_view NoCommand = "__fish_use_subcommand";
    std::string Text = "# Completions of fish for quexley: quexley completions fish | source\n" +
                       FishOptions(Syntax.front(), NoCommand);
    for (std::size_t Index = 1; Index < Syntax.size(); ++Index)
    {
        const TCommandSyntax& Command = Syntax[Index];
        const std::string Condition = "__fish_seen_subcommand_from " + Command.Name;
        Text += fmt::format("complete -c quexley -n {} -f -a {} -d {}\n", NoCommand, Command.Name,
                            FishText(Command.Description));
        if (const std::string Operand = OperandWords(Command); !Operand.empty())
            Text += fmt::format("complete -c quexley -n {} -f -a \"{}\"\n", FishText(Condition), Operand);
        Text += FishOptions(Command, Condition);
    }
    return Text;
}

struct TShell
{
    std::string_view Name;
    std::string (*Write)(const TSyntax& Syntax);
};
constexpr std::array<TShell, 3> Shells = {
    {{"bash", BashCompletions}, {"zsh", ZshCompletions}, {"fish", FishCompletions}}};
} // namespace

int CompletionsCommand(const TArguments& Arguments, TQXRuntime&)
{
    constexpr std::array<std::string_view, 3> Names = {Shells[0].Name, Shells[1].Name, Shells[2].Name};
    if (Arguments.Words.size() != 1)
        throw EUsageError("completions wants the name of one shell: bash, zsh or fish");
    for (const TShell& Shell : Shells)
        if (Shell.Name == Arguments.Words.front())
            return WriteAnswer(Shell.Write(DescribeCommandLine(ProgramCommands())));
    throw EUsageError(fmt::format("there are no completions of \"{}\"{}; there are bash, zsh and fish",
                                  Arguments.Words.front(), DidYouMean(Arguments.Words.front(), Names)));
}
