#include "package/pages/QXGACInstallFrame.h"

#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"

TGACInstallFrame::TGACInstallFrame()
{
    Bind(rbAssemblyPath, rbAssemblyListfile, &TGACInstallAction::UseListFile);
    Bind(txtAssemblyPath, &TGACInstallAction::AssemblyPath);
    Bind(txtAssemblyListFile, &TGACInstallAction::AssemblyListFile);
    BindReference(Reference);
    BrowseByDialog(txtAssemblyPath, FileFilters::Assemblies);
    BrowseByDialog(txtAssemblyListFile, FileFilters::TextFiles);
}

bool TGACInstallFrame::Validate()
{
    return Check({{rbAssemblyPath, txtAssemblyPath, "Assembly Path is required."},
                  {rbAssemblyListfile, txtAssemblyListFile, "Assembly Listfile is required."}},
                 Reference);
}
