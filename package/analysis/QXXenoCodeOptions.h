#pragma once

#include "package/plugin/QXToolOptions.h"

#include <array>
#include <string>
#include <string_view>

enum TXenoCodeVersion { XenoCode2004, XenoCode2005, XenoCode2006 };
constexpr auto QXElements(TXenoCodeVersion)
{
    return std::array<std::string_view, 3>{"XenoCode2004", "XenoCode2005", "XenoCode2006"};
}

/// Where the generations of XenoCode lie, as its action sees it.
class IQXXenoCodeOptions
{
public:
    virtual ~IQXXenoCodeOptions() = default;
    /// Full paths of xc.exe, xcc.exe and xbuild.exe; empty what was neither set nor found.
    virtual void SetXenoCode2004Exe(std::string_view Location) = 0;
    [[nodiscard]] virtual std::string GetXenoCode2004Exe() const = 0;
    [[nodiscard]] virtual std::string GetXenoCode2005Exe() const = 0;
    virtual void SetXenoCode2005Exe(std::string_view Location) = 0;
    [[nodiscard]] virtual std::string GetXenoCode2006Exe() const = 0;
    virtual void SetXenoCode2006Exe(std::string_view Location) = 0;
    /// The generation for new actions.
    [[nodiscard]] virtual TXenoCodeVersion GetXenoCodeVersion() const = 0;
    virtual void SetXenoCodeVersion(TXenoCodeVersion Version) = 0;
};

/// Holds the locations of the three tools: what is stored, else what the installer's lists tell; and the version for
/// new actions.
class TQXXenoCodeOptions final : public TQXToolOptions, public IQXXenoCodeOptions
{
public:
    TQXXenoCodeOptions();

    static std::string GetName() { return "XenoCode"; }
    static std::string GetCategory() { return ".Net Tools"; }
    static std::string GetOptionKey() { return "XenoCode"; }

    /// Marks the object as modified if something that is not stored had to be worked out.
    void LoadOptions(IQXOptionsReader& Reader) override;
    void SetXenoCode2004Exe(std::string_view Location) override { Change(FXenoCode2004Exe, Location); }
    [[nodiscard]] std::string GetXenoCode2004Exe() const override { return FXenoCode2004Exe; }
    [[nodiscard]] std::string GetXenoCode2005Exe() const override { return FXenoCode2005Exe; }
    void SetXenoCode2005Exe(std::string_view Location) override { Change(FXenoCode2005Exe, Location); }
    [[nodiscard]] std::string GetXenoCode2006Exe() const override { return FXenoCode2006Exe; }
    void SetXenoCode2006Exe(std::string_view Location) override { Change(FXenoCode2006Exe, Location); }
    [[nodiscard]] TXenoCodeVersion GetXenoCodeVersion() const override { return FXenoCodeVersion; }
    void SetXenoCodeVersion(TXenoCodeVersion Version) override { Change(FXenoCodeVersion, Version); }

private:
    /// Takes over a stored location, else looks the tool up. Whether it was stored.
    bool LoadLocation(IQXOptionsReader& Reader, std::string& Location, std::string_view Tool, TRegistryRoot Root,
                      std::string_view Key);

    std::string FXenoCode2004Exe;
    std::string FXenoCode2005Exe;
    std::string FXenoCode2006Exe;
    TXenoCodeVersion FXenoCodeVersion = XenoCode2006;
};

/// The one XenoCode options object, or null when it is not registered.
[[nodiscard]] inline IQXXenoCodeOptions* XenoCodeOptions()
{
    return QXFindOptions<TQXXenoCodeOptions>();
}
