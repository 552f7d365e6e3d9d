#pragma once

#include "host/QXDotNetInfo.h"
#include "runtime/OptionsFile.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

using TDotNetVersionList = std::vector<std::unique_ptr<IQXDotNetVersionInfo>>;

/// The .NET versions that were found and configured, in ascending order.
class TDotNetVersions final : public IQXDotNetInfo
{
public:
    /// A configured version replaces a detected one of the same name, also where it names no folder.
    TDotNetVersions(TDotNetVersionList Detected, const std::vector<TConfiguredDotNet>& Configured);

    [[nodiscard]] int GetVersionCount() const override { return static_cast<int>(FVersions.size()); }
    [[nodiscard]] const IQXDotNetVersionInfo& GetVersionByIndex(int Index) const override;
    [[nodiscard]] const IQXDotNetVersionInfo* GetVersion(std::string_view Name) const override;

private:
    TDotNetVersionList FVersions;
};

/// Whether a version of the one name comes before that of the other: by the numbers between the dots behind the "v".
/// Names of another form stand before all versions, in byte order, since the last one of the list is the default.
[[nodiscard]] bool ComesBefore(std::string_view Left, std::string_view Right);
