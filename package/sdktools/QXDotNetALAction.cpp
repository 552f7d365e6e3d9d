#include "package/sdktools/QXDotNetALAction.h"

#include "host/QXUtilities.h"
#include "platform/CommandLines.h"
#include "platform/Text.h"

namespace
{
/// The file that one of the linker's arguments names as its output, empty for another argument.
std::string OutputOf(const std::string& Argument)
{
    const std::size_t Colon = Argument.find(':');
    if (Colon == std::string::npos || (Argument[0] != '/' && Argument[0] != '-'))
        return {};
    return Texts::Same(Argument.substr(1, Colon - 1), "out") ? StripQuotes(Argument.substr(Colon + 1)) : std::string();
}
} // namespace

bool TALGenericAL::Validate(IQXActionValidationError& Errors)
{
    return Require(Errors, {{StartDir, "Working folder", "Working folder has not been set"}});
}

std::vector<std::string> TALGenericAL::GetOutputs()
{
    const std::string Folder = ExpandExpression(StartDir, false);
    std::vector<std::string> Files;
    for (const std::string& Argument : CommandLines::Split(CommandLines::JoinLines(ExpandExpression(Options, false))))
        if (const std::string Output = OutputOf(Argument); !Output.empty())
            Files.push_back(ExpandRelativePath(Output, Folder));
    return Files;
}
