#pragma once

#include "package/plugin/QXToolOptions.h"

#include <string>
#include <string_view>

/// Where FxCop lies, as its action sees it.
class IQXFxCopOptions
{
public:
    virtual ~IQXFxCopOptions() = default;
    /// Full path of FxCopCmd.exe; empty if it was neither set nor found.
    [[nodiscard]] virtual std::string GetFxCopExe() const = 0;
    virtual void SetFxCopExe(std::string_view Location) = 0;
    /// The text with the tool's folder, which ends in a delimiter, for each "$(FxCopDir)" in any case of letters.
    [[nodiscard]] virtual std::string ReplaceFxCopDir(std::string_view Text) const = 0;
};

/// Holds the location of FxCopCmd.exe, which is searched for in the registry.
class TQXFxCopOptions final : public TQXToolOptions, public IQXFxCopOptions
{
public:
    TQXFxCopOptions() { PublishTool("FxCopExe", FFxCopExe, "Full path of FxCopCmd.exe"); }

    static std::string GetName() { return "FxCop"; }
    static std::string GetCategory() { return ".Net Tools"; }
    static std::string GetOptionKey() { return "FxCop"; }

    void LoadOptions(IQXOptionsReader& Reader) override;

    [[nodiscard]] std::string GetFxCopExe() const override { return FFxCopExe; }
    void SetFxCopExe(std::string_view Location) override { Change(FFxCopExe, Location); }
    [[nodiscard]] std::string ReplaceFxCopDir(std::string_view Text) const override;

private:
    std::string FFxCopExe;
};

/// The one FxCop options object, or null when it is not registered.
[[nodiscard]] inline IQXFxCopOptions* FxCopOptions()
{
    return QXFindOptions<TQXFxCopOptions>();
}
