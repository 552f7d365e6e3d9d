#include "QXCopyFilesAction.h"

#include "QXPathTexts.h"

TQXCopyFilesAction::TQXCopyFilesAction()
{
    Published(Files).Required("bin/Release/*.dll");
    Publish("TargetDir", TargetDir, "Folder that gets the copies; it is made if it is not there")
        .Folder()
        .Required("dist");
    Publish("Recurse", Recurse, "Masks hold in all folders below, too, and folders stand for all that lies below them");
    Publish("KeepFolders", KeepFolders, "Copies lie in the folders that stand behind the last one named in full");
    Publish("OnlyNewer", OnlyNewer, "Leave out what has not changed since the file in the target folder");
}

bool TQXCopyFilesAction::Validate(IQXActionValidationError& Errors)
{
    const bool HasFiles = TQXFileAction::Validate(Errors);
    return Require(Errors, !TargetDir.empty(), "Target Directory", "The target directory has not been set") && HasFiles;
}

bool TQXCopyFilesAction::Execute()
{
    std::vector<std::string> Items;
    std::string Folder;
    if (!ExpandFiles(Items) || !ExpandTarget("Target Directory", TargetDir, Folder))
        return false;
    Folder = QXFiles().Spelling(Folder);
    TQXFileSelection Selection = MakeSelection({.RecurseMasks = Recurse,
                                                .RecurseFolders = Recurse,
                                                .Links = TQXFolderLinks::Follow,
                                                .LeaveOut = QXFiles().Resolve(Folder)});
    if (!SelectAll(Items, Selection))
        return false;
    FCopied = 0;
    TSources Sources;
    for (const TQXSelectedFile& File : Selection.Files())
        if (!CopyFile(File, JoinPath(Folder, KeepFolders ? File.BehindBase() : File.Entry.Name), Sources))
            return false;
    if (!IsDryRun())
        SendMessage("Copied " + CountOf(FCopied) + " to " + Folder);
    return true;
}

bool TQXCopyFilesAction::CopyFile(const TQXSelectedFile& File, const std::string& Target, TSources& Sources)
{
    if (File.Entry.Kind == TQXFileKind::Other)
    {
        SendMessage("Left out " + File.Path + " : it is no ordinary file");
        return true;
    }
    if (!NoteSource(File, Target, Sources) || !IsWanted(File, Target))
        return true;
    const std::string Folder = FolderOfPath(Target);
    if (!Folder.empty() && !QXFiles().ForceFolders(Folder))
    {
        SendMessage("Error - The folder could not be made : " + Folder);
        return false;
    }
    ++FCopied;
    return Try("Error - " + File.Path + " could not be copied to " + Target,
               [&] { QXFiles().Duplicate(File.Path, Target); });
}

bool TQXCopyFilesAction::IsWanted(const TQXSelectedFile& File, const std::string& Target) const
{
    const TQXFileEntry There = QXFiles().Entry(Target);
    if (There.Kind != TQXFileKind::File)
        return true;
    if (OnlyNewer && File.Entry.Changed <= There.Changed)
        return false;
    return QXFiles().Resolve(File.Path) != QXFiles().Resolve(Target); // else it is there already
}

/// False for a file that was named before. Two of one name are copied one over the other, as their user may want it,
/// but not unsaid.
bool TQXCopyFilesAction::NoteSource(const TQXSelectedFile& File, const std::string& Target, TSources& Sources) const
{
    std::string& Source = Sources[LowerCase(Target)];
    if (Source == File.Path)
        return false;
    if (!Source.empty())
        SendMessage("Warning: " + File.Path + " takes the place of " + Source + " in " + Target);
    Source = File.Path;
    return true;
}
