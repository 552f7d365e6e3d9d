#pragma once

#include "host/QXPages.h"
#include "package/plugin/QXDotNetOptionsImpl.h"

/// The machine-wide .NET settings: the default version.
class TDotNetOptionsFrame final : public TOptionsFrame
{
public:
    [[nodiscard]] std::string GetPageName() const override { return {}; }
    void ReadOptions(TQXOptionsObject& Options) override;
    void WriteOptions(TQXOptionsObject& Options) override;

    TLabel lblSDKVersions{*this, "lblSDKVersions", "Default .NET SDK Version"};
    TComboBox cbSDKVersions{*this, "cbSDKVersions"};
};
