#include "host/QXDotNetInfo.h"

#include "runtime/Runtime.h"
#include "runtime/clrhost/DotNetVersions.h"
#include "runtime/clrhost/MonoDetection.h"

const IQXDotNetInfo& QXDotNetInfo()
{
    TQXRuntime& Runtime = TQXRuntime::Current();
    if (Runtime.DotNetInfo() == nullptr)
    {
        const TOptionsFile& Options = Runtime.Options();
        TDotNetVersionList Detected = Options.DetectDotNet() ? DetectMono(MonoPrefixes()) : TDotNetVersionList();
        Runtime.SetDotNetInfo(std::make_unique<TDotNetVersions>(std::move(Detected), Options.DotNetVersions()));
    }
    return *Runtime.DotNetInfo();
}
