#include "package/plugin/QXDotNetAction.h"

#include "host/QXDotNetInfo.h"
#include "host/QXFiles.h"
#include "package/plugin/QXDotNetOptionsImpl.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <charconv>
#include <cmath>

namespace
{
/// The number behind the first "v"; 1.0 for what is none.
double VersionNumber(std::string_view Version)
{
    std::string Number(Version);
    if (const auto Place = Number.find_first_of("vV"); Place != std::string::npos)
        Number.erase(Place, 1);

    const std::string_view Digits = Texts::Trim(Number);
    double Value = 0;
    const auto [End, Error] = std::from_chars(Digits.data(), Digits.data() + Digits.size(), Value);
    const bool IsNumber = Error == std::errc() && End == Digits.data() + Digits.size() && std::isfinite(Value);
    return IsNumber ? Value : 1.0;
}
} // namespace

std::vector<std::string> InstalledVersions()
{
    std::vector<std::string> Result;
    const IQXDotNetInfo& Info = QXDotNetInfo();
    Result.reserve(static_cast<size_t>(Info.GetVersionCount()));
    for (int Index = 0; Index < Info.GetVersionCount(); ++Index)
        Result.push_back(Info.GetVersionByIndex(Index).GetVersionName());
    return Result;
}

TQXDotNetAction::TQXDotNetAction()
{
    LogOutput = true;
    HideWindow = true;
    Publish("OverrideSDKDefault", OverrideSDKDefault,
            "Use a .NET version of its own and not the default of the options");
    PublishAccessors<std::string>(
        "SDKVersion", "The .NET version whose tool runs; one of its own needs OverrideSDKDefault",
        [this] { return GetDefaultSDKVersion(); },
        [this](const std::string& Version) { SetDefaultSDKVersion(Version); })
        .StoredWhile([this] { return OverrideSDKDefault && FSDKVersion; });
    Publish("MinimumSDKVersion", MinimumSDKVersion, "Lowest .NET version with which the action works");
    PublishAccessors<TQXDotNetToolType>("DotNetToolType", "Folder of the .NET version in which the tool lies",
                                        [this] { return GetDotNetToolType(); });
}

std::string TQXDotNetAction::GetDefaultSDKVersion() const
{
    return OverrideSDKDefault && FSDKVersion ? *FSDKVersion : DotNetOptions().GetDefaultSDKVersion();
}

void TQXDotNetAction::SetDefaultSDKVersion(const std::string& Version)
{
    FSDKVersion = OverrideSDKDefault ? Version : DotNetOptions().GetDefaultSDKVersion();
}

std::string TQXDotNetAction::GetFrameWorkPath() const
{
    const IQXDotNetVersionInfo* Version = QXDotNetInfo().GetVersion(GetDefaultSDKVersion());
    return Version ? Version->GetFrameworkPath() : "";
}

std::string TQXDotNetAction::GetSDKPath() const
{
    const IQXDotNetVersionInfo* Version = QXDotNetInfo().GetVersion(GetDefaultSDKVersion());
    return Version ? Version->GetSDKPath() : "";
}

bool TQXDotNetAction::IsValidSDKVersion(std::string_view Version) const
{
    return VersionNumber(MinimumSDKVersion) <= VersionNumber(Version);
}

bool TQXDotNetAction::IsNewerThan(std::string_view Version) const
{
    return VersionNumber(Version) < VersionNumber(GetDefaultSDKVersion());
}

bool TQXDotNetAction::IsMono() const
{
    return QXFiles().FileExists(Paths::WithTrailing(GetFrameWorkPath()) + "mcs.exe");
}

void TQXDotNetAction::ExplainMono(bool IsAskedFor, std::string_view Explanation) const
{
    if (IsAskedFor && IsMono())
        SendMessage(Explanation);
}

std::string TQXDotNetAction::GetExecutable()
{
    const TQXDotNetToolType ToolType = GetDotNetToolType();
    if (ToolType == ttNone)
        return GetDotNetTool();
    const std::string Folder = ToolType == ttSDK ? GetSDKPath() : GetFrameWorkPath();
    return QXFiles().Spelling(Paths::WithTrailing(Folder) + GetDotNetTool());
}

std::string TQXDotNetAction::GetStartingDir(const std::string& Exe)
{
    return Paths::Folder(Exe);
}

bool TQXDotNetAction::BeforeGetCommandLine()
{
    if (const std::string Version = GetDefaultSDKVersion(); !IsValidSDKVersion(Version))
    {
        SendMessage("The current SDK version (" + Version + ") is less than the minimum version required (" +
                    MinimumSDKVersion + ")");
        return false;
    }

    const TQXDotNetToolType ToolType = GetDotNetToolType();
    if (ToolType == ttFramework && GetFrameWorkPath().empty())
    {
        SendMessage("The .NET framework version you are trying to use is not installed");
        return false;
    }
    if (ToolType == ttSDK && GetSDKPath().empty())
    {
        SendMessage("The .NET SDK version you are trying to use is not installed");
        return false;
    }
    return true;
}

void TQXDotNetAction::GetHiddenProperties(TStringList& List) const
{
    TQXExecuteAbstractAction::GetHiddenProperties(List);
    for (const char* Name : {"MinimumSDKVersion", "DotNetToolType", "SDKVersion"})
        List.Add(Name);
}
