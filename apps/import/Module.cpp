#include "apps/import/Import.h"

/// What the module exports under a plain name. Throws as ImportProjects does.
extern "C" void QXImportProjects(const TImportWishes& Wishes, TImportResult& Result);

void QXImportProjects(const TImportWishes& Wishes, TImportResult& Result)
{
    Result = ImportProjects(Wishes);
}
