// What options objects share that hold where tools lie.
#pragma once

#include "host/QXServices.h"
#include "platform/Registry.h"

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

/// Base of the options objects that hold where tools lie. A derived class publishes its locations by PublishTool; one
/// that searches for what is not stored calls FindTool in LoadOptions, behind the base's.
class TQXToolOptions : public TQXOptionsObject
{
protected:
    /// Publishes a location, a tool's full path.
    TQXProperty& PublishTool(std::string_view Name, std::string& Location, std::string_view Meaning)
    {
        return Publish(Name, Location, Meaning).File();
    }
    /// Asks the searches in turn while the location is empty. What they find does not mark the object as modified:
    /// where it has to, the derived class uses its setter.
    static void FindTool(std::string& Location, std::initializer_list<std::function<std::string()>> Searches);
};

/// A text of the registry: empty when the key has no such value, none when there is no such key.
[[nodiscard]] std::optional<std::string> QXRegistryText(TRegistryRoot Root, std::string_view Key,
                                                        std::string_view Name);
/// A tool in a folder that the registry names; empty when it names none.
[[nodiscard]] std::string QXToolInRegistryFolder(TRegistryRoot Root, std::string_view Key, std::string_view Name,
                                                 std::string_view Tool);

/// A tool in the list of what was installed for the user, as it stands there; empty if it is not listed.
[[nodiscard]] std::string QXToolOfInstaller(std::string_view Tool);

/// The one object of an options class, or null when the class is not registered.
template <typename T> [[nodiscard]] T* QXFindOptions()
{
    return dynamic_cast<T*>(QXOptionsServices().GetOptions(T::GetCategory(), T::GetName()));
}
