#include "QXDeleteFilesAction.h"

#include "QXPathTexts.h"

#include <map>

TQXDeleteFilesAction::TQXDeleteFilesAction()
{
    Published(Files).Required("dist/*");
    Publish("Recurse", Recurse, "Masks hold in all folders below, too, and folders stand for all that lies below them");
    Publish("RemoveFolders", RemoveFolders, "Delete the named folders themselves, and those that a mask matches");
    Publish("AllowOutside", AllowOutside, "Delete also what lies outside of the project's folder");
}

bool TQXDeleteFilesAction::Execute()
{
    std::vector<std::string> Items;
    if (!ExpandFiles(Items))
        return false;
    TQXFileSelection Selection =
        MakeSelection({.RecurseMasks = Recurse, .RecurseFolders = Recurse, .TakeFolders = RemoveFolders});
    FProjectFolder = QXFiles().Resolve(".");
    bool Allowed = true;
    for (const std::string& Item : Items)
    {
        if (!Selection.Add(Item))
            SendMessage("Nothing is there for : " + Item);
        // Whether that is allowed must not depend on what happens to lie there.
        Allowed = IsAllowed(Item, QXFiles().Resolve(JoinPath(Selection.Base(), "."))) && Allowed;
    }
    return Allowed && AreAllowed(Selection.Files()) && DeleteAll(Selection.Files());
}

bool TQXDeleteFilesAction::IsAllowed(const std::string& Named, const std::string& Place) const
{
    if (AllowOutside || IsInFolder(Place, FProjectFolder))
        return true;
    SendMessage("Error - Nothing was deleted, for this lies outside of the project's folder : " + Named);
    return false;
}

/// The links on the way to a file count, but not a link that is to be deleted itself.
bool TQXDeleteFilesAction::AreAllowed(const std::vector<TQXSelectedFile>& Selected) const
{
    std::map<std::string, std::string> Places;
    for (const TQXSelectedFile& File : Selected)
    {
        const std::string Folder = FolderOfPath(File.Path);
        std::string& Place = Places[Folder];
        if (Place.empty())
            Place = QXFiles().Resolve(Folder.empty() ? "." : Folder);
        const bool IsProject = File.IsFolder() && QXFiles().Resolve(File.Path) == FProjectFolder;
        if (!IsAllowed(File.Path, IsProject ? "" : JoinPath(Place, File.Entry.Name)))
            return false;
    }
    return true;
}

bool TQXDeleteFilesAction::DeleteAll(const std::vector<TQXSelectedFile>& Selected)
{
    bool Succeeded = true;
    FDeleted = 0;
    for (const TQXSelectedFile& File : Selected)
        Succeeded = Try("Error - It could not be deleted", [&] { Delete(File); }) && Succeeded;
    if (!IsDryRun())
        SendMessage("Deleted " + CountOf(FDeleted));
    return Succeeded;
}

/// A folder in which something is left stays.
void TQXDeleteFilesAction::Delete(const TQXSelectedFile& File)
{
    const bool IsFolder = File.IsFolder();
    if (IsFolder && !QXFiles().Entries(File.Path).empty())
    {
        SendMessage("The folder is not empty and stays : " + File.Path);
        return;
    }
    // It may have been named twice.
    const TQXFileEntry Entry = QXFiles().Entry(File.Path);
    FDeleted += !IsFolder && (Entry.IsLink || Entry.Kind != TQXFileKind::None) ? 1 : 0;
    QXFiles().Remove(File.Path);
}
