#pragma once

#include "package/plugin/QXToolOptions.h"

#include <array>
#include <string>
#include <string_view>

enum TNDocVersion { NDoc12, NDoc13 };
constexpr auto QXElements(TNDocVersion)
{
    return std::array<std::string_view, 2>{"NDoc12", "NDoc13"};
}

/// Where the two versions of NDoc lie, as its action sees it.
class IQXNDocOptions
{
public:
    virtual ~IQXNDocOptions() = default;
    /// Full path of the console of version 1.2; empty until somebody sets it.
    [[nodiscard]] virtual std::string GetNDocLocation() const = 0;
    virtual void SetNDocLocation(std::string_view Location) = 0;
    /// The same of version 1.3.
    [[nodiscard]] virtual std::string GetNDoc13Location() const = 0;
    virtual void SetNDoc13Location(std::string_view Location) = 0;
    /// What pages offer first; no action asks for it.
    [[nodiscard]] virtual TNDocVersion GetDefaultNDocVer() const = 0;
    virtual void SetDefaultNDocVer(TNDocVersion Version) = 0;
};

/// Holds the locations of NDoc's consoles, which are not searched for.
class TQXNDocOptions final : public TQXToolOptions, public IQXNDocOptions
{
public:
    TQXNDocOptions()
    {
        PublishTool("NDocLocation", FNDocLocation, "Full path of NDocConsole.exe of NDoc 1.2");
        PublishTool("NDoc13Location", FNDoc13Location, "Full path of NDocConsole.exe of NDoc 1.3");
        Publish("DefaultNDocVer", FDefaultNDocVer, "Version that pages offer for new actions")
            .StoredAsOrdinal("DefaultVersion");
    }

    static std::string GetName() { return "NDoc"; }
    static std::string GetCategory() { return "Help Compilers"; }
    static std::string GetOptionKey() { return "NDoc"; }

    [[nodiscard]] std::string GetNDocLocation() const override { return FNDocLocation; }
    void SetNDocLocation(std::string_view Location) override { Change(FNDocLocation, Location); }
    [[nodiscard]] std::string GetNDoc13Location() const override { return FNDoc13Location; }
    void SetNDoc13Location(std::string_view Location) override { Change(FNDoc13Location, Location); }
    [[nodiscard]] TNDocVersion GetDefaultNDocVer() const override { return FDefaultNDocVer; }
    void SetDefaultNDocVer(TNDocVersion Version) override { Change(FDefaultNDocVer, Version); }

private:
    std::string FNDocLocation;
    std::string FNDoc13Location;
    TNDocVersion FDefaultNDocVer = NDoc12;
};

/// The one NDoc options object, or null when it is not registered.
[[nodiscard]] inline IQXNDocOptions* NDocOptions()
{
    return QXFindOptions<TQXNDocOptions>();
}
