#include "package/compiler/QXDotNetUtils.h"

#include "host/QXServices.h"
#include "host/QXUtilities.h"
#include "platform/Paths.h"
#include "platform/Registry.h"
#include "platform/Text.h"

namespace
{
/// The drive of the system folder with its colon; nothing where folders have none.
std::string SystemDrive()
{
    const std::string Folder = GetSysDirectory();
    return Folder.size() > 1 && Folder[1] == ':' ? Folder.substr(0, 2) : "";
}
} // namespace

std::string FindAssemblyKeyFolder(std::string_view Key)
{
    const auto Place = Key.rfind('\\');
    if (Place == std::string_view::npos)
        return {};
    const std::string Name(Key.substr(Place + 1));
    if (Name == "primary interop assemblies")
        return Paths::Normalise(SystemDrive() + "\\Program Files\\Microsoft.NET\\Primary Interop Assemblies\\");
    const auto Folder = QXRegistry().OpenKey(TRegistryRoot::LocalMachine,
                                             "SOFTWARE\\Microsoft\\.NETFramework\\AssemblyFolders\\" + Name);
    return Folder ? Folder->ReadString("").value_or("") : "";
}

std::string WithLibraryExtension(const std::string& Name)
{
    return Text::Upper(Name).find(".DLL") == std::string::npos ? Name + ".dll" : Name;
}
