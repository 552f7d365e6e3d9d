#include "package/analysis/QXDotfuscatorOptions.h"

#include "host/QXFiles.h"

namespace
{
/// Values that hold the tool's full path.
struct TPlace
{
    TRegistryRoot Root;
    std::string_view Key;
    std::string_view Name;
};
constexpr TPlace Places[] = {
    {TRegistryRoot::CurrentUser, "\\Software\\Microsoft\\VisualStudio\\7.1\\External Tools", "ToolCmd2"},
    {TRegistryRoot::LocalMachine,
     "\\SOFTWARE\\Microsoft\\VisualStudio\\7.1\\External Tools\\Dot&fuscator Community Edition", "ToolCmd"},
    {TRegistryRoot::LocalMachine,
     "\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Installer\\UserData\\S-1-5-18\\Components\\"
     "16128618CA0D70D44A319D85E0C6ED76",
     "9040160281AC6A14E9129AA38EE27E5C"},
};
} // namespace

/// What is stored or in the installer's list is taken as it is; the other places may name a file that is gone.
void TQXDotfuscatorOptions::LoadOptions(IQXOptionsReader& Reader)
{
    TQXToolOptions::LoadOptions(Reader);
    FindTool(FDotfuscatorExe, {[] { return QXToolOfInstaller("Dotfuscator.exe"); }});
    if (!FDotfuscatorExe.empty())
        return;
    for (const TPlace& Place : Places)
        if (!QXFiles().FileExists(FDotfuscatorExe))
            FDotfuscatorExe = QXRegistryText(Place.Root, Place.Key, Place.Name).value_or(FDotfuscatorExe);
}
