#include "package/analysis/QXFxCopOptions.h"

#include "platform/Paths.h"
#include "platform/Text.h"

namespace
{
constexpr std::string_view Tool = "FxCopCmd.exe";

/// A key of the user counts also without a folder in it.
std::string InstallRoot()
{
    static constexpr std::string_view Key = "\\Software\\Microsoft\\FxCop";
    const auto OfUser = QXRegistryText(TRegistryRoot::CurrentUser, Key, "InstallRoot");
    return OfUser ? *OfUser : QXRegistryText(TRegistryRoot::LocalMachine, Key, "InstallRoot").value_or("");
}
} // namespace

void TQXFxCopOptions::LoadOptions(IQXOptionsReader& Reader)
{
    TQXToolOptions::LoadOptions(Reader);
    FindTool(FFxCopExe, {[] { return QXToolOfInstaller(Tool); }});
    if (!FFxCopExe.empty())
        return;
    if (const std::string Folder = InstallRoot(); !Folder.empty())
        SetFxCopExe(Paths::WithTrailing(Folder) + std::string(Tool));
}

std::string TQXFxCopOptions::ReplaceFxCopDir(std::string_view Text) const
{
    static constexpr std::string_view Place = "$(FXCOPDIR)";
    const std::string Upper = Texts::Upper(Text);
    const std::string Folder = Paths::Folder(FFxCopExe);
    std::string Result;
    std::size_t Start = 0;
    for (std::size_t Found = Upper.find(Place); Found != std::string::npos; Found = Upper.find(Place, Start))
    {
        Result.append(Text.substr(Start, Found - Start)).append(Folder);
        Start = Found + Place.size();
    }
    return Result.append(Text.substr(Start));
}
