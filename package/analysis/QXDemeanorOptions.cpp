#include "package/analysis/QXDemeanorOptions.h"

void TQXDemeanorOptions::LoadOptions(IQXOptionsReader& Reader)
{
    static constexpr std::string_view Tool = "Demeanor.exe";
    TQXToolOptions::LoadOptions(Reader);
    FindTool(FDemeanorExe,
             {[] { return QXToolOfInstaller(Tool); },
              [] {
                  return QXToolInRegistryFolder(TRegistryRoot::CurrentUser,
                                                "\\Software\\Wise Owl, Inc.\\Demeanor for .NET, Personal Edition",
                                                "InstallDir", Tool);
              }});
}
