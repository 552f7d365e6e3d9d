#include "pages/QXFileListGroup.h"

#include "QXFileAction.h"
#include "host/QXUtilities.h"

#include <string>
#include <utility>

TQXFileListGroup::TQXFileListGroup(TSurface& Page)
    : memFiles(Page, "memFiles", "Files, folders and masks, one a line :"), txtFile(Page, "txtFile", "Add :")
{
    Page.Bind(memFiles, &TQXFileAction::Files);
    txtFile.OnBrowse = [this] {
        std::string File = txtFile.Text;
        if (QXBrowseForFile(File, "All Files|*.*", "Select File"))
            txtFile.Change(std::move(File));
    };
    txtFile.OnAccept = [this] {
        if (!txtFile.Text.empty())
            memFiles.Lines.Add(txtFile.Text);
        txtFile.Change({});
    };
}

void BrowseForFolder(TEdit& Edit, const char* Prompt)
{
    Edit.OnBrowse = [&Edit, Prompt] {
        std::string Folder = Edit.Text;
        if (QXBrowseForDirectory(Folder, Prompt))
            Edit.Change(std::move(Folder));
    };
}
