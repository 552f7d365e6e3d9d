#include "package/compiler/QXDotNetUtils.h"

#include "host/QXFiles.h"
#include "host/QXServices.h"
#include "host/QXUtilities.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace
{
/// The drive of the system folder with its colon; nothing where folders have none.
std::string SystemDrive()
{
    const std::string Folder = GetSysDirectory();
    return Folder.size() > 1 && Folder[1] == ':' ? Folder.substr(0, 2) : "";
}

/// In capitals and without leading zeros, as type libraries are registered.
std::string HexNumber(int Number)
{
    std::array<char, std::numeric_limits<unsigned>::digits / 4> Digits{};
    const auto End = std::to_chars(Digits.begin(), Digits.end(), static_cast<unsigned>(Number), 16).ptr;
    return Texts::Upper({Digits.begin(), End});
}
} // namespace

std::string FindTypLib(std::string_view Guid, int Major, int Minor, int Lcid)
{
    const std::string Versions[] = {HexNumber(Major) + '.' + HexNumber(Minor),
                                    std::to_string(Major) + '.' + std::to_string(Minor)};
    for (const std::string& Version : Versions)
    {
        const std::string Path = "TypeLib\\" + std::string(Guid) + '\\' + Version + '\\' + HexNumber(Lcid) + "\\win32";
        if (const auto Key = QXRegistry().OpenKey(TRegistryRoot::ClassesRoot, Path))
            return Key->ReadString("").value_or("");
    }
    return {};
}

std::string GetGACFolder()
{
    if (const auto Key = QXRegistry().OpenKey(TRegistryRoot::LocalMachine, "Software\\Microsoft\\Fusion"))
        if (std::string Location = Key->ReadString("CacheLocation").value_or(""); !Location.empty())
            return Location;
    const std::string Windows = GetWinDirectory();
    const std::string Folder = Windows.empty() ? "" : QXFiles().Find(Paths::Join(Windows, "assembly\\GAC"));
    return QXFiles().FolderExists(Folder) ? Paths::WithTrailing(Folder) : "";
}

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

std::string FindAssemblyPath(std::string_view Name, TRegistryRoot Root, std::string_view Key)
{
    const auto Assemblies = QXRegistry().OpenKey(Root, Key);
    if (!Assemblies)
        return {};
    const std::string Wanted = Texts::Upper(Name);
    for (const std::string& Assembly : Assemblies->SubKeyNames())
        if (Texts::Upper(Assembly).find(Wanted) != std::string::npos)
            return Texts::Replace(Assembly, "|", "\\");
    return {};
}

std::string WithLibraryExtension(const std::string& Name)
{
    return Texts::Upper(Name).find(".DLL") == std::string::npos ? Name + ".dll" : Name;
}

std::string DottedName(const std::string& Path, const std::string& Folder)
{
    std::string Name = Paths::IsAbsolute(Path) ? Paths::RelativeTo(Path, Folder) : Paths::Normalise(Path);
    std::replace_if(Name.begin(), Name.end(), Paths::IsDelimiter, '.');
    return Name;
}
