#include "package/sdktools/QXDotNetASPdotNETIISRegAction.h"

bool TASPIISRegGeneric::GetCommandLine(ICommandLineBuilder& Builder)
{
    FSucceeded = TQXFreeFormAction::GetCommandLine(Builder);
    return FSucceeded;
}

void TASPIISRegGeneric::OnStdErrData(IQXProcess& Process, std::string_view Data)
{
    TQXFreeFormAction::OnStdErrData(Process, Data);
    FSucceeded = false;
}

void TASPIISRegGeneric::OnStdOutData(IQXProcess& Process, std::string_view Data)
{
    TQXFreeFormAction::OnStdOutData(Process, Data);
    if (Data.find("Invalid arguments") != std::string_view::npos)
        FSucceeded = false;
}

bool TASPIISRegGeneric::Validate(IQXActionValidationError& Errors)
{
    return Require(Errors, {{StartDir, "Working folder", "Working folder has not been set"}});
}
