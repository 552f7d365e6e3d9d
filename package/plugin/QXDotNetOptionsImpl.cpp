#include "package/plugin/QXDotNetOptionsImpl.h"

#include "host/QXDotNetInfo.h"
#include "package/plugin/QXToolOptions.h"

#include <stdexcept>

TQXDotNetOptions::TQXDotNetOptions()
{
    Publish("DefaultSDKVersion", FDefaultSDKVersion, "The .NET version of actions that name none of their own");

    const IQXDotNetInfo& Info = QXDotNetInfo();
    if (const int Count = Info.GetVersionCount(); Count > 0)
        FDefaultSDKVersion = Info.GetVersionByIndex(Count - 1).GetVersionName();
}

IQXDotNetOptions& DotNetOptions()
{
    auto* Options = QXFindOptions<TQXDotNetOptions>();
    if (!Options)
        throw std::logic_error("The .NET options are not registered");
    return *Options;
}
