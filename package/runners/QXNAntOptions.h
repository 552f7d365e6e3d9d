#pragma once

#include "package/plugin/QXToolOptions.h"

#include <string>
#include <string_view>

/// Where NAnt lies, as its action sees it.
class IQXNAntOptions
{
public:
    virtual ~IQXNAntOptions() = default;
    /// Full path of nant.exe; empty until somebody sets it.
    [[nodiscard]] virtual std::string GetNAntLocation() const = 0;
    virtual void SetNAntLocation(std::string_view Location) = 0;
};

/// Holds the location of nant.exe, which is not searched for.
class TQXNAntOptions final : public TQXToolOptions, public IQXNAntOptions
{
public:
    TQXNAntOptions() { PublishTool("NAntLocation", FNAntLocation, "Full path of nant.exe"); }

    static std::string GetName() { return "NAnt"; }
    static std::string GetCategory() { return "Build Tools"; }
    static std::string GetOptionKey() { return "NAnt"; }

    [[nodiscard]] std::string GetNAntLocation() const override { return FNAntLocation; }
    void SetNAntLocation(std::string_view Location) override { Change(FNAntLocation, Location); }

private:
    std::string FNAntLocation;
};

/// The one NAnt options object, or null when it is not registered.
[[nodiscard]] inline IQXNAntOptions* NAntOptions()
{
    return QXFindOptions<TQXNAntOptions>();
}
