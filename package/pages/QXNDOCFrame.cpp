#include "package/pages/QXNDOCFrame.h"

#include "host/QXForms.h"
#include "host/QXUtilities.h"
#include "package/documentation/QXNDocAction.h"
#include "package/pages/QXNDocEditAssemblyForm.h"
#include "package/pages/QXNDocPropertyPage.h"
#include "package/pages/QXPageSteps.h"
#include "platform/Paths.h"

namespace
{
/// The form that edits a line; one without "=" is an assembly too.
TNDocEditAssemblyForm FormOf(const TStringList& Lines, std::size_t Index)
{
    const std::string& Line = Lines[Index];
    return {Line.substr(0, Line.find('=')), Lines.ValueAt(Index)};
}
} // namespace

TNDOCFrame::TNDOCFrame()
{
    BindAll();
    BindAssemblies();
    lbAssemblies.IsMultiSelect = false;
    Browse(txtProjFile, "NDoc Project Files (*.ndoc)|*.ndoc");
    Browse(txtNamespaceSumm, "Text Files (*.txt)|*.txt|All Files|*.*");
    txtFindDir.OnBrowse = [this] { BrowseFindDir(); };
    rbNDoc12.OnClick = rbNDoc13.OnClick = [this] { TellVersion(); };
    EnableWhile(chkVerbose, [this] { return !rbProj.IsChecked(); });
    EnableWhile(txtNamespaceSumm, [this] { return !rbProj.IsChecked(); });
}

void TNDOCFrame::BindAll()
{
    Bind({&rbProj, &rbAss, &rbFind}, &TQXNDocAction::NDocMode);
    Bind(txtProjFile, &TQXNDocAction::ProjectFile);
    Bind(txtFindDir, &TQXNDocAction::FindDirectory);
    Bind(txtMaxDepth, &TQXNDocAction::MaximumDepth);
    Bind({&rbNDoc12, &rbNDoc13}, &TQXNDocAction::NDocVersion);
    Bind(chkVerbose, &TQXNDocAction::Verbose);
    Bind(txtNamespaceSumm, &TQXNDocAction::NamespaceSummFile);
}

void TNDOCFrame::BindAssemblies()
{
    BindMember(
        lbAssemblies, &TQXNDocAction::Assemblies,
        [this](const TStringList& Lines) {
            FAssemblies = Lines;
            ShowAssemblies();
        },
        [this](TStringList& Lines) { Lines = FAssemblies; });
    Buttons.btnAdd.OnClick = [this] { AddAssembly(); };
    Buttons.btnEdit.OnClick = [this] { EditAssembly(); };
    Buttons.btnDelete.OnClick = [this] { RemoveAssembly(); };
    for (TButton* Button : {&Buttons.btnEdit, &Buttons.btnDelete})
        EnableWhile(*Button, [this] { return !lbAssemblies.Selected.empty(); });
}

void TNDOCFrame::BrowseFindDir()
{
    std::string Folder = ExpandedAtDesignTime(txtFindDir.Text);
    if (QXBrowseForDirectory(Folder, "Select the base directory"))
        txtFindDir.Change(Folder);
}

void TNDOCFrame::AddAssembly()
{
    TNDocEditAssemblyForm Form("", "");
    if (!QXShowForm(Form) || Form.Line().empty())
        return;
    FAssemblies.Add(Form.Line());
    ShowAssemblies();
}

void TNDOCFrame::EditAssembly()
{
    if (lbAssemblies.Selected.empty())
        return;
    const std::size_t Index = lbAssemblies.Selected.front();
    TNDocEditAssemblyForm Form = FormOf(FAssemblies, Index);
    if (!QXShowForm(Form) || Form.Line().empty())
        return;
    FAssemblies[Index] = Form.Line();
    ShowAssemblies();
    lbAssemblies.Selected = {Index};
}

void TNDOCFrame::RemoveAssembly()
{
    if (lbAssemblies.Selected.empty() || !QXConfirm("Are you sure you want to delete the selected assembly reference?"))
        return;
    FAssemblies.Delete(lbAssemblies.Selected.front());
    ShowAssemblies();
}

void TNDOCFrame::ShowAssemblies()
{
    std::vector<std::string> Shown;
    for (std::size_t Index = 0; Index < FAssemblies.Count(); ++Index)
    {
        const std::string& Line = FAssemblies[Index];
        const std::string Documentation = Paths::FileName(FAssemblies.ValueAt(Index));
        Shown.push_back(Line.substr(0, Line.find('=')) + (Documentation.empty() ? "" : " (" + Documentation + ")"));
    }
    lbAssemblies.Show(std::move(Shown));
}

void TNDOCFrame::TellVersion() const
{
    for (TPage* Page : Owner() ? Owner()->Pages() : std::vector<TPage*>())
        if (auto* Told = dynamic_cast<IQXNDocPropertyPage*>(Page))
            Told->NDocVersionChanged(rbNDoc12.IsChecked() ? NDoc12 : NDoc13);
}
