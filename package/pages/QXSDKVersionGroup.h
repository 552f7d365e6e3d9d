#pragma once

#include "host/QXControls.h"
#include "package/plugin/QXDotNetAction.h"

/// The controls that choose the .NET version of an action.
class TSDKVersionGroup
{
public:
    /// Which of the installed versions are listed.
    enum class TVersions { Valid, All };

    TSDKVersionGroup(TContainer& Page, TVersions Versions);
    /// Fits captions and visibility to where the action's tool lies.
    void Init(const TQXDotNetAction& Action);
    void Read(const TQXDotNetAction& Action);
    /// Where no version is picked, because none is installed, the action keeps its own.
    void Write(TQXDotNetAction& Action) const;

    TPanel pnlSDKVersion;
    TLabel lblSDKVer{pnlSDKVersion, "lblSDKVer", "SDK Version"};
    TRadioButton rbUseDefaultSDK{pnlSDKVersion, "rbUseDefaultSDK", "Use Default SDK Version"};
    TRadioButton rbUseSDK{pnlSDKVersion, "rbUseSDK", "Use"};
    TComboBox cbSDKs{pnlSDKVersion, "cbSDKs"};

private:
    [[nodiscard]] std::string DefaultCaption(const TQXDotNetAction& Action) const;
    TVersions FVersions;
    std::string FDefaultCaption = rbUseDefaultSDK.Caption; ///< without the version
};
