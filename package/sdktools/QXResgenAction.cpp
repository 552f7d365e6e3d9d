#include "package/sdktools/QXResgenAction.h"

#include "host/QXUtilities.h"
#include "package/plugin/QXActionHelpers.h"

TQXResGenAction::TQXResGenAction()
{
    MinimumSDKVersion = "1.0";
    Publish("InputFiles", InputFiles, "Resource file to convert").File().Required("%ProjectDir%/Texts.resx");
    Publish("OutputFile", OutputFile, "File to write; without one the tool chooses the name").File();
}

bool TQXResGenAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    std::string Input;
    std::string Output;
    if (!TryExpandExpression("InputFiles", InputFiles, Input, true) ||
        !TryExpandExpression("OutputFile", OutputFile, Output, false))
        return false;
    // As values: the builder sees to a backslash in front of the closing quote.
    Builder.AddArgument("", DoubleQuoteString(Input, true));
    if (!Output.empty())
        Builder.AddArgument("", DoubleQuoteString(Output, true));
    return true;
}

bool TQXResGenAction::Validate(IQXActionValidationError& Errors)
{
    return Require(Errors, {{InputFiles, "Input files", "Input file(s) has not been set"}});
}
