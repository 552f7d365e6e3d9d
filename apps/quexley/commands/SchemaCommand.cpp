#include "apps/quexley/Answer.h"
#include "apps/quexley/commands/Commands.h"
#include "runtime/projects/ProjectSchema.h"

int SchemaCommand(const TArguments&, TQXRuntime&)
{
    return WriteAnswer(ProjectSchemaJson());
}
