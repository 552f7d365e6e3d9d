#include "package/pages/QXFrameFxCopAdditional.h"

#include "host/QXUtilities.h"
#include "package/analysis/QXFxCopAction.h"
#include "platform/Files.h"

TFrameFxCopAdditional::TFrameFxCopAdditional()
{
    Bind(lbDirectories, &TQXFxCopAction::Directories);
    Bind(lbImports, &TQXFxCopAction::ImportReports);
    lbDirectories.IsMultiSelect = false;
    lbImports.IsMultiSelect = false;
    EditLines(lbDirectories, DirectoryButtons);
    DirectoryButtons.btnAdd.OnClick = [this] { AddDirectory(); };
    EditLines(lbImports, ImportButtons,
              {.Filter = "FxCop Projects and Reports (*.FxCop;*.xml)|*.FxCop;*.xml|All files (*.*)|*.*",
               .FolderPrompt = "Select a folder containing reports and/or project sto import:",
               .OtherTitle = "Other imports",
               .OtherPrompt = "File/Folder:"});
}

void TFrameFxCopAdditional::AddDirectory()
{
    std::string Folder =
        lbDirectories.Selected.empty() ? Files::CurrentFolder() : lbDirectories.Items[lbDirectories.Selected.front()];
    if (QXBrowseForDirectory(Folder, "Select Directory"))
        AddLine(lbDirectories, std::move(Folder));
}
