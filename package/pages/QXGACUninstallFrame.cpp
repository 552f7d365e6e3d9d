#include "package/pages/QXGACUninstallFrame.h"

#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"

TGACUninstallFrame::TGACUninstallFrame()
{
    // Read in this order, the path goes before the list file where a project has both.
    Bind(rbAssemblyName, rbAssemblyListfile, &TGACUninstallAction::UseListFile);
    Bind(rbAssemblyPath, &TGACUninstallAction::UseAssemblyPath);
    Bind(txtAssemblyName, &TGACUninstallAction::AssemblyName);
    Bind(txtAssemblyPath, &TGACUninstallAction::AssemblyPath);
    Bind(txtAssemblyListFile, &TGACUninstallAction::AssemblyListFile);
    BindReference(Reference);
    BrowseByDialog(txtAssemblyPath, FileFilters::AssemblyFiles);
    BrowseByDialog(txtAssemblyListFile, FileFilters::TextFiles);
}

bool TGACUninstallFrame::Validate()
{
    return Check({{rbAssemblyName, txtAssemblyName, "Assembly Name is required."},
                  {rbAssemblyListfile, txtAssemblyListFile, "Assembly Listfile is required."},
                  {rbAssemblyPath, txtAssemblyPath, "Assembly Path is required."}},
                 Reference);
}
