#pragma once

#include "package/plugin/QXToolOptions.h"

#include <string>
#include <string_view>

/// Where NUnit lies, as its action sees it.
class IQXNUnitOptions
{
public:
    virtual ~IQXNUnitOptions() = default;
    /// Full path of nunit-console.exe; empty until somebody sets it.
    [[nodiscard]] virtual std::string GetNUnitLocation() const = 0;
    virtual void SetNUnitLocation(std::string_view Location) = 0;
    [[nodiscard]] virtual TQXOptionsObject& GetImplementation() = 0;
};

/// Holds the location of nunit-console.exe, which is not searched for.
class TQXNUnitOptions final : public TQXToolOptions, public IQXNUnitOptions
{
public:
    TQXNUnitOptions() { PublishTool("NUnitLocation", FNUnitLocation, "Full path of nunit-console.exe"); }

    static std::string GetName() { return "NUnit"; }
    static std::string GetCategory() { return "Other"; }
    static std::string GetOptionKey() { return "NUnit"; }

    [[nodiscard]] std::string GetNUnitLocation() const override { return FNUnitLocation; }
    void SetNUnitLocation(std::string_view Location) override { Change(FNUnitLocation, Location); }
    [[nodiscard]] TQXOptionsObject& GetImplementation() override { return *this; }

private:
    std::string FNUnitLocation;
};

/// The one NUnit options object, or null when it is not registered.
[[nodiscard]] inline IQXNUnitOptions* NUnitOptions()
{
    return QXFindOptions<TQXNUnitOptions>();
}
