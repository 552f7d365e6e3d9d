#include "apps/quexley/Answer.h"
#include "apps/quexley/commands/Commands.h"
#include "apps/quexley/commands/ProjectSchema.h"

int SchemaCommand(const TArguments&, TQXRuntime&)
{
    return WriteAnswer(ProjectSchema().dump(2) + "\n");
}
