#include "apps/quexley/Answer.h"
#include "apps/quexley/commands/Commands.h"
#include "apps/quexley/commands/ShownClass.h"
#include "apps/quexley/help/HelpPage.h"
#include "platform/Console.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "runtime/HostErrors.h"
#include "runtime/Runtime.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>

namespace
{
/// Long lines are hard to read, however wide a terminal is.
constexpr int WidestLine = 100;

std::string HelpOfCommand(const TCommand& Command)
{
    const std::string Name(Command.Name);
    const std::array<const char*, 3> Words = {"quexley", Name.c_str(), "--help"};
    return ParseCommandLine(static_cast<int>(Words.size()), Words.data(), ProgramCommands()).Answer;
}

std::string AllTopics(TQXRuntime& Runtime)
{
    std::vector<std::vector<std::string>> Commands;
    for (const TCommand& Command : ProgramCommands())
        if (!Command.IsHidden)
            Commands.push_back({std::string(Command.Name), std::string(Command.Description)});
    std::vector<std::vector<std::string>> Actions;
    for (const TQXActionRegistration& Action : Runtime.ActionServices().Actions())
        Actions.push_back({Action.ActionClass.ClassName, Action.DisplayName, Action.Category});
    return "quexley help TOPIC tells of a command, or of an action by its class or its name\n\nCommands\n" +
           AlignColumns(Commands, "  ") + "\nActions\n" + AlignColumns(Actions, "  ");
}
} // namespace

int HelpCommand(const TArguments& Arguments, TQXRuntime& Runtime)
{
    // Names of actions hold blanks, which need no quotes here.
    const std::string Topic = fmt::format("{}", fmt::join(Arguments.Words, " "));
    if (Topic.empty())
        return WriteAnswer(AllTopics(Runtime));
    for (const TCommand& Command : ProgramCommands())
        if (Command.Name == Topic)
            return WriteAnswer(HelpOfCommand(Command));
    const int Width = std::min(Console::Width(), WidestLine);
    return WriteAnswer(HelpAsText(HelpOf(FindShownClass(Runtime, Topic)), static_cast<std::size_t>(Width)));
}

int HelpPagesCommand(const TArguments& Arguments, TQXRuntime& Runtime)
{
    if (Arguments.Words.size() != 1)
        throw EUsageError("help-pages wants the name of one folder");
    for (const TQXActionRegistration& Action : Runtime.ActionServices().Actions())
    {
        const TShownClass Shown = FindShownClass(Runtime, Action.ActionClass.ClassName);
        const std::string File = Paths::Expand(Shown.QuickHelpFilename, Arguments.Words.front());
        if (!Files::ForceFolders(Paths::Folder(File)))
            throw EFileError(Paths::Folder(File), "the folder cannot be made");
        Files::Write(File, HelpAsHtml(HelpOf(Shown)));
    }
    return 0;
}
