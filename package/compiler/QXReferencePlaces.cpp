#include "package/compiler/QXReferencePlaces.h"

#include "host/QXFiles.h"
#include "platform/Paths.h"
#include "platform/Text.h"

std::vector<std::string> LibraryFolders(const TQXManagedCompilerAction& Action, const TProjectLoad& Load)
{
    TStringList Locations;
    Locations.SetText(Texts::Replace(Action.ExpandExpression(Action.LibLocations, false), ",", "\n"));
    std::vector<std::string> Folders;
    if (std::string Framework = Action.GetFrameWorkPath(); !Framework.empty())
        Folders.push_back(std::move(Framework));
    for (const std::string& Location : Locations)
        if (!Location.empty())
            Folders.push_back(Paths::Expand(Location, Load.Folder));
    return Folders;
}

std::string FindIn(const std::vector<std::string>& Folders, std::string_view Name)
{
    for (const std::string& Folder : Folders)
        if (const std::string Path = Paths::Join(Folder, Name); QXFiles().FileExists(Path))
            return QXFiles().Find(Path);
    return {};
}
