#pragma once

#include "package/plugin/QXToolOptions.h"

#include <string>
#include <string_view>

/// Where Demeanor lies, as its action sees it.
class IQXDemeanorOptions
{
public:
    virtual ~IQXDemeanorOptions() = default;
    /// Full path of Demeanor.exe; empty if it was neither set nor found.
    [[nodiscard]] virtual std::string GetDemeanorExe() const = 0;
    virtual void SetDemeanorExe(std::string_view Location) = 0;
};

/// Holds the location of Demeanor.exe, which is searched for in the user's part of the registry.
class TQXDemeanorOptions final : public TQXToolOptions, public IQXDemeanorOptions
{
public:
    TQXDemeanorOptions() { PublishTool("DemeanorExe", FDemeanorExe, "Full path of Demeanor.exe"); }

    static std::string GetName() { return "Demeanor"; }
    static std::string GetCategory() { return ".Net Tools"; }
    static std::string GetOptionKey() { return "Demeanor"; }

    void LoadOptions(IQXOptionsReader& Reader) override;

    [[nodiscard]] std::string GetDemeanorExe() const override { return FDemeanorExe; }
    void SetDemeanorExe(std::string_view Location) override { Change(FDemeanorExe, Location); }

private:
    std::string FDemeanorExe;
};

/// The one Demeanor options object, or null when it is not registered.
[[nodiscard]] inline IQXDemeanorOptions* DemeanorOptions()
{
    return QXFindOptions<TQXDemeanorOptions>();
}
