#include "package/pages/QXAssemblyInfoUpdaterFrame.h"

#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "package/sourceupdate/QXAssemblyInfoUpdaterAction.h"

TAssemblyInfoUpdaterFrame::TAssemblyInfoUpdaterFrame()
{
    Bind(memFiles, &TQXAssemblyInfoUpdaterAction::Selection);
    Bind(chkBackupFiles, &TQXAssemblyInfoUpdaterAction::BackupFiles);
    Bind(chkRecurse, &TQXAssemblyInfoUpdaterAction::Recurse);
    Bind(chkUpdateOnly, &TQXAssemblyInfoUpdaterAction::UpdateOnly);
    RzButtonEdit1.Hint = "A file or a mask to add to the list";
    Browse(RzButtonEdit1, FileFilters::Sources);
    AcceptInto(memFiles, RzButtonEdit1);
}
