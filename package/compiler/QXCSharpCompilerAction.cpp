#include "package/compiler/QXCSharpCompilerAction.h"

#include "host/QXUtilities.h"
#include "platform/Text.h"

namespace
{
constexpr std::string_view FileAlignSwitches[] = {
    "", "/filealign:512", "/filealign:1024", "/filealign:2048", "/filealign:4096", "/filealign:8192"};
}

void TQXCustomCSharpCompilerAction::ResetOptions()
{
    TQXManagedCompilerAction::ResetOptions();
    static_cast<TQXCSharpOptions&>(*this) = {};
}

bool TQXCustomCSharpCompilerAction::Validate(IQXActionValidationError& Errors)
{
    return ValidateSources(Errors, !Files.empty() || !RecurseFiles.empty());
}

bool TQXCustomCSharpCompilerAction::GenerateResponseFile(const std::string& BaseDir, TStringList& Lines)
{
    if (FileAlign != TCSharpFileAlign::faDefault)
        Lines.Add(std::string(FileAlignSwitches[static_cast<std::size_t>(FileAlign)]));
    if (!Incremental && !AddOption("/doc", "Doc to XML File", DocFile, Lines))
        return false;
    Lines.Add(Checked ? "/checked+" : "/checked-");
    if (FullPaths)
        Lines.Add("/fullpaths");
    if (Incremental)
        Lines.Add("/incremental+");
    if (CompileUnsafe)
        Lines.Add("/unsafe");
    AddWarningLevel(WarningLevel, Lines);
    return AddLibraryPath(Lines) && AddFileSwitches("/win32icon", "Icons", Icon, Lines) &&
           AddFileSwitches("/win32res", "Win32 Resources", Win32Resources, Lines) &&
           TQXManagedCompilerAction::GenerateResponseFile(BaseDir, Lines);
}

bool TQXCustomCSharpCompilerAction::AddLibraryPath(TStringList& Lines) const
{
    if (Text::Trim(LibLocations).empty())
        return true;
    std::string Expanded;
    if (!TryExpandExpression("Library Locations", LibLocations, Expanded, false))
        return false;
    // This compiler takes a quoted path only with its switch inside the quotes.
    Lines.Add(DoubleQuoteString("/lib:" + Expanded, true));
    return true;
}

TQXCSharpCompilerAction::TQXCSharpCompilerAction()
{
    PublishListSettings({.Icon = true, .CodePage = true});
    Published(Files).Required("*.cs");
    Publish("FileAlign", FileAlign, "Alignment of the sections of the file in bytes");
    Publish("DocFile", DocFile, "File for the XML documentation; none is made by an incremental build").File();
    Publish("NoSTDLib", NoSTDLib, "Do not refer to the standard library");
    Publish("Checked", Checked, "Check arithmetic for overflow");
    Publish("FullPaths", FullPaths, "Name files in messages with their full paths");
    Publish("Incremental", Incremental, "Compile only what has changed");
    Publish("NoConfig", NoConfig, "Do not read the compiler's own response file");
    Publish("CompileUnsafe", CompileUnsafe, "Allow unsafe code");
    Publish("WarningLevel", WarningLevel, "Level of the warnings that are shown");
}
