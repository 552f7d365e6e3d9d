#pragma once

#include "host/QXOptions.h"

#include <string>
#include <string_view>

/// The machine-wide .NET settings as actions see them.
class IQXDotNetOptions
{
public:
    virtual ~IQXDotNetOptions() = default;
    /// The .NET version of every action that does not override it; empty when none is installed.
    [[nodiscard]] virtual std::string GetDefaultSDKVersion() const = 0;
    virtual void SetDefaultSDKVersion(std::string_view Version) = 0;
    [[nodiscard]] virtual TQXOptionsObject& GetImplementation() = 0;
};

/// Holds the default .NET version: what is stored, else the newest installed version.
class TQXDotNetOptions final : public TQXOptionsObject, public IQXDotNetOptions
{
public:
    TQXDotNetOptions();

    static std::string GetName() { return "Microsoft .NET SDK"; }
    static std::string GetCategory() { return ".NET Tools"; }
    static std::string GetOptionKey() { return "Microsoft.NET"; }

    [[nodiscard]] std::string GetDefaultSDKVersion() const override { return FDefaultSDKVersion; }
    void SetDefaultSDKVersion(std::string_view Version) override { Change(FDefaultSDKVersion, Version); }
    [[nodiscard]] TQXOptionsObject& GetImplementation() override { return *this; }

private:
    std::string FDefaultSDKVersion;
};

/// The one .NET options object. Throws std::logic_error when it was not registered.
[[nodiscard]] IQXDotNetOptions& DotNetOptions();
