#include "apps/quexley/CommandLine.h"

#include "apps/quexley/Syntax.h"
#include "runtime/HostErrors.h"
#include "runtime/NearestName.h"
#include "runtime/Variables.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <array>
#include <optional>

namespace
{
/// What is taken as it stands and understood after all of it was read: what is unknown is reported first.
struct TRawArguments
{
    TArguments Arguments;
    std::vector<std::string> Settings;
    std::string From;
    std::string Format = "text";
    std::string Colour = "auto";
};

constexpr std::array<std::string_view, 5> Formats = {"text", "json", "github", "azure", "teamcity"};
constexpr std::array<std::string_view, 3> Colours = {"auto", "always", "never"};

std::string Quoted(std::string_view Text)
{
    return fmt::format("\"{}\"", Text);
}

/// The element of an enumeration whose names are Names.
template <typename TElement>
TElement ParseChoice(std::string_view Option, std::string_view Text, std::span<const std::string_view> Names)
{
    for (std::size_t Index = 0; Index < Names.size(); ++Index)
        if (Names[Index] == Text)
            return static_cast<TElement>(Index);
    throw EUsageError(fmt::format("{} is one of {}, not {}{}", Option, fmt::join(Names, ", "), Quoted(Text),
                                  DidYouMean(Text, Names)));
}

std::pair<std::string, std::string> ParseSetting(const std::string& Text)
{
    const std::size_t Equals = Text.find('=');
    if (Equals == std::string::npos || !IsVariableName(std::string_view(Text).substr(0, Equals)))
        throw EUsageError("--set wants NAME=VALUE, a name of letters, digits, _ and .; what was given is not shown, it "
                          "may be secret");
    return {Text.substr(0, Equals), Text.substr(Equals + 1)};
}

/// An option with a value of this form; given several times, the last one counts.
void AddText(CLI::App& App, const std::string& Name, const std::string& Form, std::string& Value,
             const std::string& Description)
{
    App.add_option(Name, Value, Description)->type_name(Form)->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
}

/// An option that may be given several times, with one value each time.
void AddTexts(CLI::App& App, const std::string& Name, const std::string& Form, std::vector<std::string>& Values,
              const std::string& Description)
{
    App.add_option(Name, Values, Description)->type_name(Form)->allow_extra_args(false);
}

void AddCommonOptions(CLI::App& App, TArguments& Arguments)
{
    AddText(App, "--options", "FILE", Arguments.OptionsFile, "Options file in place of the user's");
    AddText(App, "--registry", "FILE", Arguments.RegistryFile, "Registry export file in place of the options' one");
    AddTexts(App, "--package", "FILE", Arguments.PackageFiles, "Package in place of the installed ones (repeatable)");
}

void AddProject(CLI::App& App, TRawArguments& Raw)
{
    App.add_option("PROJECT", Raw.Arguments.Project,
                   "File, or folder that holds a quexley.toml; default: the nearest upwards")
        ->type_name("");
}

void AddProjectArguments(CLI::App& App, TRawArguments& Raw)
{
    TArguments& Arguments = Raw.Arguments;
    TRunOptions& Run = Arguments.Run;
    AddProject(App, Raw);
    AddTexts(App, "-s,--set", "NAME=VALUE", Raw.Settings, "Set a variable (repeatable)");
    AddText(App, "--from", "N|NAME", Raw.From, "Begin with this action");
    AddTexts(App, "--only", "N|NAME", Run.Only, "Take only this action (repeatable)");
    AddTexts(App, "--group", "NAME", Run.Groups, "Take only the actions of this group (repeatable)");
    AddTexts(App, "--skip-group", "NAME", Run.SkipGroups, "Leave out the actions of this group (repeatable)");
    AddText(App, "--format", "text|json|github|azure|teamcity", Raw.Format, "Format of the log");
    AddText(App, "--log", "FILE", Arguments.LogFile, "Write a copy of the text log to this file");
    App.add_flag("-q,--quiet", Arguments.Quiet, "Show only what failed or warned, and one line of totals");
    AddText(App, "--color", "auto|always|never", Raw.Colour, "Whether the log has colours");
}

void AddRunArguments(CLI::App& App, TRawArguments& Raw)
{
    TRunOptions& Run = Raw.Arguments.Run;
    AddProjectArguments(App, Raw);
    App.add_flag("--resume", Run.Resume, "Begin where the last run ended without success");
    App.add_flag("-k,--keep-going", Run.KeepGoing, "Go on behind an action that failed");
    App.add_flag("-v,--verbose", Raw.Arguments.Verbose, "Show every process start");
    App.add_flag("--fail-on-warning", Raw.Arguments.FailOnWarning, "Fail if a tool or Quexley itself warned");
    AddText(App, "--report", "FILE.xml", Raw.Arguments.ReportFile,
            "Write a JUnit report with a test case for each action");
    App.add_flag("--skip-validation", Run.SkipValidation, "Run without validating first");
    App.add_flag("-n,--dry-run", Run.DryRun, "Start no process, show what would be started");
}

void AddInitArguments(CLI::App& App, TArguments& Arguments)
{
    App.add_option("FOLDER|SOLUTION", Arguments.Project, "Folder with projects, or a solution; default: this folder")
        ->type_name("");
    AddText(App, "--config", "NAME", Arguments.Configuration,
            "Configuration that is built; default: Debug, or the usual");
    AddText(App, "--output", "FILE", Arguments.OutputFile, "File in place of quexley.toml in the folder");
    App.add_flag("--force", Arguments.Force, "Replace the file if it is there");
    App.add_flag("--json", Arguments.Json, "Write what was found as JSON");
}

void AddWords(CLI::App& App, const std::string& Name, TArguments& Arguments, const std::string& Description)
{
    App.add_option(Name, Arguments.Words, Description)->type_name("");
}

void AddClass(CLI::App& App, TRawArguments& Raw)
{
    AddWords(App, "CLASS", Raw.Arguments, "Class or registered name of an action or of an options object");
}

void AddArguments(CLI::App& App, TCommandArguments Kind, TRawArguments& Raw)
{
    switch (Kind)
    {
    case TCommandArguments::None:
        break;
    case TCommandArguments::Run:
        AddRunArguments(App, Raw);
        break;
    case TCommandArguments::Validate:
        AddProjectArguments(App, Raw);
        break;
    case TCommandArguments::Init:
        AddInitArguments(App, Raw.Arguments);
        break;
    case TCommandArguments::ProjectAndJson:
        AddProject(App, Raw);
        App.add_flag("--json", Raw.Arguments.Json, "Write JSON");
        break;
    case TCommandArguments::Project:
        AddProject(App, Raw);
        break;
    case TCommandArguments::Shell:
        AddWords(App, "SHELL", Raw.Arguments, "bash, zsh or fish");
        break;
    case TCommandArguments::Class:
        AddClass(App, Raw);
        break;
    case TCommandArguments::Topic:
        AddWords(App, "TOPIC", Raw.Arguments,
                 "Class or registered name of an action or of an options object, or a command; default: all of them");
        break;
    case TCommandArguments::Folder:
        AddWords(App, "FOLDER", Raw.Arguments, "Folder to write to");
        break;
    case TCommandArguments::ClassAndJson:
        AddClass(App, Raw);
        App.add_flag("--example", Raw.Arguments.Example, "Write a block that validates");
        App.add_flag("--scripts", Raw.Arguments.Scripts, "Show the scripts with their parameters");
        [[fallthrough]];
    case TCommandArguments::Json:
        App.add_flag("--json", Raw.Arguments.Json, "Write JSON");
        break;
    case TCommandArguments::Option:
        AddWords(App, "OPERATION", Raw.Arguments, "list (the default), get KEY.NAME or set KEY.NAME VALUE");
        break;
    }
    AddCommonOptions(App, Raw.Arguments);
}

/// Reports the first word that no argument took.
void CheckExtras(const CLI::App& App, const std::string& What, std::vector<std::string_view> Known)
{
    const std::vector<std::string> Extras = App.remaining();
    if (Extras.empty())
        return;
    const std::string& Word = Extras.front();
    if (!Word.starts_with('-') || Word == "-")
        throw EUsageError(fmt::format("unknown {} {}{}", What, Quoted(Word), DidYouMean(Word, Known)));
    std::vector<std::string> Names;
    for (const CLI::Option* Option : App.get_options())
        if (Option->nonpositional())
            Names.push_back("--" + Option->get_lnames().front());
    Known.assign(Names.begin(), Names.end());
    const std::string Name = Word.substr(0, Word.find('='));
    throw EUsageError(fmt::format("unknown option {}{}", Quoted(Name), DidYouMean(Name, Known)));
}

TArguments Understand(TRawArguments Raw)
{
    TArguments& Arguments = Raw.Arguments;
    Arguments.Format = ParseChoice<TLogFormat>("--format", Raw.Format, Formats);
    Arguments.Colour = ParseChoice<TColourChoice>("--color", Raw.Colour, Colours);
    if (!Raw.From.empty())
        Arguments.Run.From = Raw.From;
    for (const std::string& Setting : Raw.Settings)
        Arguments.Run.Overrides.push_back(ParseSetting(Setting));
    if (Arguments.Quiet && Arguments.Verbose)
        throw EUsageError("--quiet and --verbose exclude each other");
    return std::move(Raw.Arguments);
}

/// The parser and what its options fill.
class TParser
{
public:
    explicit TParser(std::span<const TCommand> Commands);
    TParsedCommandLine Parse(int Count, const char* const* Words);
    [[nodiscard]] std::vector<TCommandSyntax> Describe() const;

private:
    [[nodiscard]] const CLI::App* Chosen() const;
    [[nodiscard]] std::string Help() const;
    void CheckCommand() const;

    std::span<const TCommand> FCommands;
    TRawArguments FRaw;
    CLI::App FApp;
};

TParser::TParser(std::span<const TCommand> Commands)
    : FCommands(Commands), FApp("Runs the actions of Quexley projects.", "quexley")
{
    FApp.require_subcommand(0, 1)->allow_extras();
    FApp.set_version_flag("--version", "quexley " QUEXLEY_VERSION, "Print the version and end");
    FApp.set_help_flag("-h,--help", "Print this help and end");
    AddCommonOptions(FApp, FRaw.Arguments);
    for (const TCommand& Command : FCommands)
    {
        CLI::App* App = FApp.add_subcommand(std::string(Command.Name), std::string(Command.Description));
        App->allow_extras();
        if (Command.IsHidden)
            App->group("");
        AddArguments(*App, Command.Arguments, FRaw);
    }
}

TCommandSyntax DescribeApp(const CLI::App& App)
{
    TCommandSyntax Result{App.get_name(), App.get_description(), {}, {}};
    for (const CLI::Option* Option : App.get_options())
        if (Option->nonpositional())
            Result.Options.push_back({"--" + Option->get_lnames().front(),
                                      Option->get_snames().empty() ? "" : "-" + Option->get_snames().front(),
                                      Option->get_type_size() == 0 ? "" : Option->get_type_name(),
                                      Option->get_description()});
        else
            Result.Operands.push_back({"", "", Option->get_name(true), Option->get_description()});
    return Result;
}

std::vector<TCommandSyntax> TParser::Describe() const
{
    std::vector<TCommandSyntax> Result = {DescribeApp(FApp)};
    for (const TCommand& Command : FCommands)
        if (!Command.IsHidden)
            Result.push_back(DescribeApp(*FApp.get_subcommand(std::string(Command.Name))));
    return Result;
}

const CLI::App* TParser::Chosen() const
{
    const std::vector<const CLI::App*> Parsed = FApp.get_subcommands(nullptr);
    for (const CLI::App* App : Parsed)
        if (App->parsed())
            return App;
    return nullptr;
}

std::string TParser::Help() const
{
    const CLI::App* App = Chosen();
    const std::string Text = App == nullptr ? FApp.help() : App->help(FApp.get_name());
    return Text.substr(0, Text.find_last_not_of('\n') + 1) + "\n";
}

void TParser::CheckCommand() const
{
    std::vector<std::string_view> Names;
    for (const TCommand& Command : FCommands)
        if (!Command.IsHidden)
            Names.push_back(Command.Name);
    CheckExtras(FApp, "command", Names);
    if (Chosen() == nullptr)
        throw EUsageError("a command is missing\n" + Help());
    CheckExtras(*Chosen(), "argument", {});
}

TParsedCommandLine TParser::Parse(int Count, const char* const* Words)
{
    TParsedCommandLine Result;
    try
    {
        FApp.parse(Count, Words);
    }
    catch (const CLI::CallForHelp&)
    {
        Result.Answer = Help();
        return Result;
    }
    catch (const CLI::CallForVersion& Version)
    {
        Result.Answer = std::string(Version.what()) + "\n";
        return Result;
    }
    catch (const CLI::ParseError& Error)
    {
        throw EUsageError(Error.what());
    }
    CheckCommand();
    for (const TCommand& Command : FCommands)
        if (Command.Name == Chosen()->get_name())
            Result.Command = &Command;
    Result.Arguments = Understand(std::move(FRaw));
    return Result;
}
} // namespace

std::vector<TCommandSyntax> DescribeCommandLine(std::span<const TCommand> Commands)
{
    return TParser(Commands).Describe();
}

TParsedCommandLine ParseCommandLine(int Count, const char* const* Words, std::span<const TCommand> Commands)
{
    return TParser(Commands).Parse(Count, Words);
}

TLogFormat WantedFormat(int Count, const char* const* Words)
{
    constexpr std::string_view Option = "--format";
    TLogFormat Format = TLogFormat::Text;
    for (int Place = 1; Place < Count; ++Place)
    {
        std::string_view Word = Words[Place];
        if (Word == Option && Place + 1 < Count)
            Word = Words[++Place];
        else if (Word.starts_with(Option) && Word.substr(Option.size()).starts_with('='))
            Word.remove_prefix(Option.size() + 1);
        else
            continue;
        const auto Known = std::find(Formats.begin(), Formats.end(), Word);
        if (Known != Formats.end())
            Format = static_cast<TLogFormat>(Known - Formats.begin());
    }
    return Format;
}
