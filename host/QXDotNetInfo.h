#pragma once

#include <string>
#include <string_view>

/// An installed .NET version.
class IQXDotNetVersionInfo
{
public:
    virtual ~IQXDotNetVersionInfo() = default;
    /// The name by which GetVersion finds it: "v" and a decimal number.
    [[nodiscard]] virtual std::string GetVersionName() const = 0;
    /// The folder of the framework's tools, empty when the framework is missing.
    [[nodiscard]] virtual std::string GetFrameworkPath() const = 0;
    /// The folder of the SDK's tools, empty when the SDK is missing.
    [[nodiscard]] virtual std::string GetSDKPath() const = 0;
};

/// The .NET versions of this machine, in ascending order.
class IQXDotNetInfo
{
public:
    virtual ~IQXDotNetInfo() = default;
    [[nodiscard]] virtual int GetVersionCount() const = 0;
    /// The version at Index, 0 to count less one.
    [[nodiscard]] virtual const IQXDotNetVersionInfo& GetVersionByIndex(int Index) const = 0;
    /// The version of this name, or null when it is not installed.
    [[nodiscard]] virtual const IQXDotNetVersionInfo* GetVersion(std::string_view Name) const = 0;
};

/// What is known of the installed .NET versions, asked anew for each query.
[[nodiscard]] const IQXDotNetInfo& QXDotNetInfo();
