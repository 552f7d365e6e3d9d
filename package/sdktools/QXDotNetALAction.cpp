#include "package/sdktools/QXDotNetALAction.h"

bool TALGenericAL::Validate(IQXActionValidationError& Errors)
{
    return Require(Errors, {{StartDir, "Working folder", "Working folder has not been set"}});
}
