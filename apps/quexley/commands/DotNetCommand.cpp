#include "apps/quexley/Answer.h"
#include "apps/quexley/commands/Commands.h"
#include "host/QXDotNetInfo.h"

#include <nlohmann/json.hpp>

namespace
{
std::string DotNetAsJson(const IQXDotNetInfo& Info)
{
    auto Versions = nlohmann::ordered_json::array();
    for (int Index = 0; Index < Info.GetVersionCount(); ++Index)
    {
        const IQXDotNetVersionInfo& Version = Info.GetVersionByIndex(Index);
        Versions.push_back({{"name", Version.GetVersionName()},
                            {"framework", Version.GetFrameworkPath()},
                            {"sdk", Version.GetSDKPath()}});
    }
    return Versions.dump(2) + "\n";
}

std::string DotNetAsText(const IQXDotNetInfo& Info)
{
    if (Info.GetVersionCount() == 0)
        return "no .NET version found\n";
    const auto Place = [](const std::string& Path) { return Path.empty() ? "not installed" : Path; };
    std::vector<std::vector<std::string>> Rows = {{"Version", "Framework", "SDK"}};
    for (int Index = 0; Index < Info.GetVersionCount(); ++Index)
    {
        const IQXDotNetVersionInfo& Version = Info.GetVersionByIndex(Index);
        Rows.push_back({Version.GetVersionName(), Place(Version.GetFrameworkPath()), Place(Version.GetSDKPath())});
    }
    return AlignColumns(Rows);
}
} // namespace

int DotNetCommand(const TArguments& Arguments, TQXRuntime&)
{
    const IQXDotNetInfo& Info = QXDotNetInfo();
    return WriteAnswer(Arguments.Json ? DotNetAsJson(Info) : DotNetAsText(Info));
}
