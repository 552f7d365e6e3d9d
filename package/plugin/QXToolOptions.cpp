#include "package/plugin/QXToolOptions.h"

#include "package/compiler/QXDotNetUtils.h"
#include "platform/Paths.h"

void TQXToolOptions::FindTool(std::string& Location, std::initializer_list<std::function<std::string()>> Searches)
{
    for (const auto& Search : Searches)
        if (Location.empty())
            Location = Search();
}

std::optional<std::string> QXRegistryText(TRegistryRoot Root, std::string_view Key, std::string_view Name)
{
    const auto Opened = QXRegistry().OpenKey(Root, Key);
    return Opened ? std::optional(Opened->ReadString(Name).value_or(std::string())) : std::nullopt;
}

std::string QXToolInRegistryFolder(TRegistryRoot Root, std::string_view Key, std::string_view Name,
                                   std::string_view Tool)
{
    const std::string Folder = QXRegistryText(Root, Key, Name).value_or(std::string());
    return Folder.empty() ? std::string() : Paths::WithTrailing(Folder) + std::string(Tool);
}

std::string QXToolOfInstaller(std::string_view Tool)
{
    return FindAssemblyPath(Tool, TRegistryRoot::CurrentUser, "\\SOFTWARE\\Microsoft\\Installer\\Assemblies");
}
