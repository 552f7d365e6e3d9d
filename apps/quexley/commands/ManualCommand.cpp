#include "apps/quexley/Answer.h"
#include "apps/quexley/Syntax.h"
#include "apps/quexley/commands/Commands.h"
#include "platform/Text.h"

#include <fmt/format.h>

namespace
{
/// Text as roff takes it: its signs mean themselves.
std::string Roff(std::string_view Text)
{
    std::string Result = Texts::Replace(Text, "\\", "\\e");
    Result = Texts::Replace(Result, "-", "\\-");
    return Result.starts_with('.') || Result.starts_with('\'') ? "\\&" + Result : Result;
}

std::string Options(const TCommandSyntax& Command)
{
    std::string Text;
    for (const TOptionSyntax& Option : Command.Options)
    {
        const std::string Short = Option.Short.empty() ? "" : fmt::format("\\fB{}\\fR, ", Roff(Option.Short));
        const std::string Form = Option.Form.empty() ? "" : fmt::format(" \\fI{}\\fR", Roff(Option.Form));
        Text += fmt::format(".TP\n{}\\fB{}\\fR{}\n{}\n", Short, Roff(Option.Long), Form, Roff(Option.Description));
    }
    return Text;
}

std::string CommandSection(const TCommandSyntax& Command)
{
    std::string Text = fmt::format(".SS quexley {}", Command.Name);
    for (const TOptionSyntax& Operand : Command.Operands)
        Text += " [" + Roff(Operand.Form) + ']';
    Text += fmt::format("\n{}.\n", Roff(Command.Description));
    for (const TOptionSyntax& Operand : Command.Operands)
        Text += fmt::format(".TP\n\\fI{}\\fR\n{}\n", Roff(Operand.Form), Roff(Operand.Description));
    return Text + Options(Command);
}

constexpr std::string_view Ending = R"(.SH EXIT STATUS
.TP
0
Everything succeeded.
.TP
1
An action failed.
.TP
2
Wrong usage, or a project, options or registry file that cannot be read.
.TP
3
Validation found something.
.TP
130, 131, 143
Ended by SIGINT, SIGQUIT, SIGTERM or SIGHUP.
.SH FILES
.TP
quexley.toml
The project, in the folder that is named or in the nearest one upwards.
.TP
~/.config/quexley/options.toml
The options, unless
.B \-\-options
names another file.
.SH ENVIRONMENT
.TP
NO_COLOR, FORCE_COLOR
Whether the log has colours, unless
.B \-\-color
says so.
)";
} // namespace

int ManualCommand(const TArguments&, TQXRuntime&)
{
    const std::vector<TCommandSyntax> Syntax = DescribeCommandLine(ProgramCommands());
    std::string Text =
        ".TH QUEXLEY 1 \"\" \"Quexley\" \"User Commands\"\n.SH NAME\nquexley \\- build automation for .NET "
        "code bases\n.SH SYNOPSIS\n.B quexley\n.I COMMAND\n[\\fIARGUMENT\\fR ...]\n.SH DESCRIPTION\n" +
        Roff(Syntax.front().Description) + "\n.SH OPTIONS\n" + Options(Syntax.front()) + ".SH COMMANDS\n";
    for (std::size_t Index = 1; Index < Syntax.size(); ++Index)
        Text += CommandSection(Syntax[Index]);
    return WriteAnswer(Text + std::string(Ending));
}
