// Looks up which type library a COM class has on this machine.
#pragma once

#include "host/QXAction.h"
#include "platform/Registry.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct TTypeLibraryVersion
{
    std::uint32_t Major = 0;
    std::uint32_t Minor = 0;
};

struct TTypeLibrary
{
    std::string Guid; ///< as the registry has it
    TTypeLibraryVersion Version;
};

/// The name of the key of a type library's current version, empty if there is none. Keys are named MAJOR.MINOR, in
/// hexadecimal; the minor version counts as decimal places.
[[nodiscard]] std::string FindCurrentVersion(const std::vector<std::string>& KeyNames);

/// Finds the type library of a COM class in the registry and tells an action's log on the way. Action and ProgID must
/// last as long as the search.
class TTypeLibrarySearch
{
public:
    TTypeLibrarySearch(const TCustomQXAction& Action, const std::string& ProgID) : FAction(Action), FProgID(ProgID) {}

    /// None if it is not found: the log tells why.
    [[nodiscard]] std::optional<TTypeLibrary> Run() const;

private:
    [[nodiscard]] static std::unique_ptr<IRegistryKey> OpenKey(const std::string& Path);
    [[nodiscard]] std::string FindGuid() const;
    [[nodiscard]] std::optional<std::string> ReadDefault(const std::string& Path, const std::string& Missing) const;
    [[nodiscard]] std::optional<TTypeLibraryVersion> FindVersion(const std::string& Path) const;
    [[nodiscard]] std::nullopt_t Fail(const std::string& Message) const;

    const TCustomQXAction& FAction;
    const std::string& FProgID;
};
