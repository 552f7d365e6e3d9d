#pragma once

#include "platform/Registry.h"

#include <optional>
#include <string>
#include <string_view>

/// Receives what a registry export says, in its order.
class IRegistryExportSink
{
public:
    virtual ~IRegistryExportSink() = default;
    /// The key that the values which follow belong to. Paths begin with the full name of their root and lie where
    /// the registry keeps them, those of HKEY_CLASSES_ROOT below HKEY_LOCAL_MACHINE.
    virtual void OnKey(const std::string& Path) = 0;
    /// A key that goes with all below it. No values follow.
    virtual void OnDeleteKey(const std::string& Path) = 0;
    /// A string, or none for a value that goes or is of another type. The name "" is the key's default value.
    /// Expandable: the string may hold `%Variable%`.
    virtual void OnValue(const std::string& Name, std::optional<std::string> Value, bool Expandable) = 0;
};

/// The path of a root as the sink gets it.
[[nodiscard]] std::string_view RegistryRootPath(TRegistryRoot Root);
/// Reads an export's text, in UTF-8. Throws ERegistryError.
void ReadRegistryExport(std::string_view Text, IRegistryExportSink& Sink);
