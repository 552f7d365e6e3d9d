#include "package/pages/QXNDocEditAssemblyForm.h"

#include "host/QXFiles.h"
#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "platform/Paths.h"

TNDocEditAssemblyForm::TNDocEditAssemblyForm(std::string Assembly, std::string Documentation)
{
    Title = "Add Assembly Filename and  XML Documentaion Filename";
    txtAss.Text = std::move(Assembly);
    txtDoc.Text = std::move(Documentation);
    txtAss.OnBrowse = [this] { BrowseAssembly(); };
    Browse(txtDoc, "/doc Output files (*.xml)|*.xml|All Files|*.*");
    EnableWhile(btnOK, [this] { return !txtAss.Text.empty(); });
    CloseBy(btnOK, btnCancel);
}

std::string TNDocEditAssemblyForm::Line() const
{
    return txtAss.Text.empty() ? "" : txtAss.Text + "=" + txtDoc.Text;
}

void TNDocEditAssemblyForm::BrowseAssembly()
{
    if (!GetFile(txtAss, FileFilters::AssembliesOnly) || !txtDoc.Text.empty())
        return;
    if (const std::string File = Paths::ChangeExtension(txtAss.Text, ".xml"); QXFiles().FileExists(File))
        txtDoc.Change(File);
}
