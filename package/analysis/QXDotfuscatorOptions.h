#pragma once

#include "package/plugin/QXToolOptions.h"

#include <string>
#include <string_view>

/// Where Dotfuscator lies, as its action sees it.
class IQXDotfuscatorOptions
{
public:
    virtual ~IQXDotfuscatorOptions() = default;
    /// Full path of Dotfuscator.exe; empty when it was neither set nor found.
    [[nodiscard]] virtual std::string GetDotfuscatorExe() const = 0;
    virtual void SetDotfuscatorExe(std::string_view Location) = 0;
};

/// Holds the location of Dotfuscator.exe: what is stored, else what its installers left in the registry.
class TQXDotfuscatorOptions final : public TQXToolOptions, public IQXDotfuscatorOptions
{
public:
    TQXDotfuscatorOptions() { PublishTool("DotfuscatorExe", FDotfuscatorExe, "Full path of Dotfuscator.exe"); }

    static std::string GetName() { return "Dotfuscator"; }
    static std::string GetCategory() { return ".Net Tools"; }
    static std::string GetOptionKey() { return "Dotfuscator"; }

    void LoadOptions(IQXOptionsReader& Reader) override;
    [[nodiscard]] std::string GetDotfuscatorExe() const override { return FDotfuscatorExe; }
    void SetDotfuscatorExe(std::string_view Location) override { Change(FDotfuscatorExe, Location); }

private:
    std::string FDotfuscatorExe;
};

/// The one Dotfuscator options object, or null when it is not registered.
[[nodiscard]] inline IQXDotfuscatorOptions* DotfuscatorOptions()
{
    return QXFindOptions<TQXDotfuscatorOptions>();
}
