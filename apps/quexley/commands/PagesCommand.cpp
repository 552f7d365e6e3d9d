#include "apps/quexley/Answer.h"
#include "apps/quexley/commands/Commands.h"
#include "apps/quexley/commands/ShownClass.h"
#include "platform/Modules.h"
#include "runtime/HostErrors.h"
#include "runtime/Runtime.h"
#include "runtime/forms/PageDriver.h"

#include <cerrno>
#include <iostream>

namespace
{
int HelpTopic(TQXRuntime& Runtime, const TShownClass& Shown)
{
    const TQXActionRegistration* Action = Runtime.ActionServices().FindAction(Shown.ClassName);
    return Action ? Action->ActionClass.HelpTopicID : 0;
}
} // namespace

int PagesCommand(const TArguments& Arguments, TQXRuntime& Runtime)
try
{
    if (Arguments.Words.size() != 1)
        throw EUsageError("pages wants one CLASS");
    const TShownClass Shown = FindShownClass(Runtime, Arguments.Words[0]);
    const TDrivenObject Driven{.Object = *Shown.Object,
                               .Action = Shown.Action,
                               .Options = dynamic_cast<TQXOptionsObject*>(Shown.Object.get()),
                               .Pages = Shown.Action ? Runtime.ActionServices().ActionPages(Shown.ClassName)
                                                     : Runtime.OptionsServices().OptionsPages(Shown.ClassName),
                               .HelpTopic = HelpTopic(Runtime, Shown)};
    // The model of pages is loaded here, so that no other command pays for it.
    const TModule Forms(TModule::FileBesideProgram("QX40Forms"));
    Forms.Function<decltype(QXDrivePages)>("QXDrivePages")(Runtime, Driven, std::cin, std::cout);
    if (!std::cout)
        CheckWritten(std::error_code(errno, std::generic_category()));
    return 0;
}
catch (const EModuleError& Error)
{
    throw EHostFileError({.Message = Error.what()});
}
