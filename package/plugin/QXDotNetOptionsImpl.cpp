#include "package/plugin/QXDotNetOptionsImpl.h"

#include "host/QXDotNetInfo.h"
#include "host/QXServices.h"

#include <stdexcept>

TQXDotNetOptions::TQXDotNetOptions()
{
    PublishAccessors<std::string>(
        "DefaultSDKVersion", "The .NET version of actions that name none of their own",
        [this] { return GetDefaultSDKVersion(); },
        [this](const std::string& Version) { SetDefaultSDKVersion(Version); });

    const IQXDotNetInfo& Info = QXDotNetInfo();
    if (const int Count = Info.GetVersionCount(); Count > 0)
        FDefaultSDKVersion = Info.GetVersionByIndex(Count - 1).GetVersionName();
}

void TQXDotNetOptions::LoadOptions(IQXOptionsReader& Reader)
{
    FDefaultSDKVersion = Reader.ReadString("DefaultSDKVersion", FDefaultSDKVersion);
}

void TQXDotNetOptions::SaveOptions(IQXOptionsWriter& Writer) const
{
    Writer.WriteString("DefaultSDKVersion", FDefaultSDKVersion);
}

void TQXDotNetOptions::SetDefaultSDKVersion(std::string_view Version)
{
    if (Version == FDefaultSDKVersion)
        return;
    FDefaultSDKVersion = Version;
    SetModified(true);
}

IQXDotNetOptions& DotNetOptions()
{
    TQXOptionsObject* Object =
        QXOptionsServices().GetOptions(TQXDotNetOptions::GetCategory(), TQXDotNetOptions::GetName());
    auto* Options = dynamic_cast<IQXDotNetOptions*>(Object);
    if (!Options)
        throw std::logic_error("The .NET options are not registered");
    return *Options;
}
