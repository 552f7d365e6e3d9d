#include "pages/QXFilePages.h"

#include "QXCopyFilesAction.h"
#include "QXDeleteFilesAction.h"
#include "QXMakeArchiveAction.h"
#include "QXRunProgramAction.h"
#include "host/QXForms.h"
#include "host/QXUtilities.h"

#include <utility>

TQXRunProgramFrame::TQXRunProgramFrame()
{
    Bind(txtProgram, &TQXRunProgramAction::Program);
    Bind(txtArguments, &TQXRunProgramAction::Arguments);
    Bind(txtStartDir, &TQXRunProgramAction::StartDir);
    Bind(txtSuccessCodes, &TQXRunProgramAction::SuccessCodes);
    BrowseForFolder(txtStartDir, "Start Directory");
    txtProgram.OnBrowse = [this] {
        std::string File = txtProgram.Text;
        if (QXBrowseForFile(File, "All Files|*.*", "Select Program"))
            txtProgram.Change(std::move(File));
    };
}

TQXCopyFilesFrame::TQXCopyFilesFrame()
{
    Bind(txtTargetDir, &TQXCopyFilesAction::TargetDir);
    Bind(chkRecurse, &TQXCopyFilesAction::Recurse);
    Bind(chkKeepFolders, &TQXCopyFilesAction::KeepFolders);
    Bind(chkOnlyNewer, &TQXCopyFilesAction::OnlyNewer);
    BrowseForFolder(txtTargetDir, "Target Directory");
}

TQXDeleteFilesFrame::TQXDeleteFilesFrame()
{
    Bind(chkRecurse, &TQXDeleteFilesAction::Recurse);
    Bind(chkRemoveFolders, &TQXDeleteFilesAction::RemoveFolders);
    Bind(chkAllowOutside, &TQXDeleteFilesAction::AllowOutside);
}

TQXMakeArchiveFrame::TQXMakeArchiveFrame()
{
    Bind(txtBaseDir, &TQXMakeArchiveAction::BaseDir);
    Bind(txtArchiveFile, &TQXMakeArchiveAction::ArchiveFile);
    BrowseForFolder(txtBaseDir, "Base Directory");
    txtArchiveFile.OnBrowse = [this] {
        TQXDialog Dialog{.Kind = TQXDialogKind::Save,
                         .Filter = "Archives (*.zip; *.tar.gz; *.tgz)|*.zip;*.tar.gz;*.tgz",
                         .File = txtArchiveFile.Text,
                         .DefaultExtension = "zip"};
        if (QXRunFileDialog(Dialog))
            txtArchiveFile.Change(Dialog.File);
    };
}
