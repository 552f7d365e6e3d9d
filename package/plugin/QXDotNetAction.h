#pragma once

#include "host/QXExecuteAction.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// In which folder of a .NET version an action's tool lies.
enum TQXDotNetToolType { ttNone, ttFramework, ttSDK };
constexpr auto QXElements(TQXDotNetToolType)
{
    return std::array<std::string_view, 3>{"ttNone", "ttFramework", "ttSDK"};
}

/// The names of the installed .NET versions, in ascending order.
[[nodiscard]] std::vector<std::string> InstalledVersions();

/// Base of the actions that run a tool of the .NET framework or SDK: tells which installed version is used
/// and where its tool lies.
class TQXDotNetAction : public TQXExecuteAbstractAction
{
public:
    TQXDotNetAction();

    [[nodiscard]] virtual TQXDotNetToolType GetDotNetToolType() const = 0;
    /// The tool's file name; for `ttNone` its path.
    [[nodiscard]] virtual std::string GetDotNetTool() const = 0;

    /// The effective version: the action's own if it overrides the default, else the global one.
    [[nodiscard]] std::string GetDefaultSDKVersion() const;
    /// Stores the version; without an override the global default is stored in its place.
    void SetDefaultSDKVersion(const std::string& Version);
    /// The folders of the effective version, empty when it is not installed.
    [[nodiscard]] std::string GetFrameWorkPath() const;
    [[nodiscard]] std::string GetSDKPath() const;
    /// Whether the version reaches the minimum. Versions compare as numbers; what is no number counts as 1.0.
    [[nodiscard]] bool IsValidSDKVersion(std::string_view Version) const;
    /// Whether the effective version is a later one than this; compared in the same way.
    [[nodiscard]] bool IsNewerThan(std::string_view Version) const;

    [[nodiscard]] std::string GetExecutable() override;
    [[nodiscard]] std::string GetStartingDir(const std::string& Exe) override;
    [[nodiscard]] bool BeforeGetCommandLine() override;
    void GetHiddenProperties(TStringList& List) const override;

    bool OverrideSDKDefault = false;
    std::string MinimumSDKVersion = "v1.0";

protected:
    /// Whether the effective version is Mono's, whose tools lack some of the switches.
    [[nodiscard]] bool IsMono() const;
    /// Says why a tool that failed was asked for too much: what Mono's lacks.
    void ExplainMono(bool IsAskedFor, std::string_view Explanation) const;

private:
    /// Without a value: the global default, which is not asked for before it is needed.
    std::optional<std::string> FSDKVersion;
};
