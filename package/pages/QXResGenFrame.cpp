#include "package/pages/QXResGenFrame.h"

#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "package/sdktools/QXResgenAction.h"

TResGenFrame::TResGenFrame()
{
    Bind(txtInputFiles, &TQXResGenAction::InputFiles);
    Bind(txtOuputFile, &TQXResGenAction::OutputFile);
    Browse(txtInputFiles, FileFilters::Resources);
    Browse(txtOuputFile, FileFilters::CompiledResources);
}
