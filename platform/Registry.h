#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// The roots that packages look below.
enum class TRegistryRoot { ClassesRoot, CurrentUser, LocalMachine };

/// An open key. Names compare ignoring case.
class IRegistryKey
{
public:
    virtual ~IRegistryKey() = default;
    /// The string or expandable string of this name, "" being the key's default value; none when absent or of
    /// another type.
    [[nodiscard]] virtual std::optional<std::string> ReadString(std::string_view Name) const = 0;
    /// In the order of the registry.
    [[nodiscard]] virtual std::vector<std::string> SubKeyNames() const = 0;
};

/// A registry, read only.
class IRegistry
{
public:
    virtual ~IRegistry() = default;
    /// The key at Path below Root ("\" delimits, a leading one is ignored), or null.
    [[nodiscard]] virtual std::unique_ptr<IRegistryKey> OpenKey(TRegistryRoot Root, std::string_view Path) const = 0;
};

/// A registry export that is malformed: the message is the reason, Line where it stands, from 1.
class ERegistryError : public std::runtime_error
{
public:
    ERegistryError(int ALine, const std::string& Reason) : std::runtime_error(Reason), Line(ALine) {}
    int Line;
};

/// Gives the value of a variable that an expandable string names, or none: then `%Name%` stays as it is.
using TRegistryVariables = std::function<std::optional<std::string>(std::string_view Name)>;

/// The registry of an export's bytes (`REGEDIT4` or version 5, 8-bit, UTF-8 or UTF-16) as a 32-bit program sees it: of
/// a 64-bit system the `Wow6432Node` branch counts first. Throws ERegistryError.
[[nodiscard]] std::unique_ptr<IRegistry> ParseRegistryExport(std::string_view Bytes,
                                                             const TRegistryVariables& Variables = {});
/// A registry without keys.
[[nodiscard]] std::unique_ptr<IRegistry> EmptyRegistry();
