#include "package/compiler/QXCSharpCompilerAction.h"

#include "host/QXUtilities.h"
#include "package/plugin/QXActionHelpers.h"
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

bool TQXCustomCSharpCompilerAction::GenerateResponseFile(TQXResponseFile& File)
{
    File.AddFlag(FileAlign != TCSharpFileAlign::faDefault, ElementText(FileAlignSwitches, FileAlign));
    if (!Incremental && !AddDocumentation(File))
        return false;
    File.Add(Checked ? "/checked+" : "/checked-");
    File.AddFlag(FullPaths, "/fullpaths");
    File.AddFlag(Incremental, "/incremental+");
    File.AddFlag(CompileUnsafe, "/unsafe");
    AddWarningLevel(WarningLevel, File);
    return AddLibraryPath(File) && AddIcons(File) && AddWin32Resources(File, "/win32res") &&
           TQXManagedCompilerAction::GenerateResponseFile(File);
}

bool TQXCustomCSharpCompilerAction::AddDocumentation(TQXResponseFile& File) const
{
    if (!Project.IsLoaded)
        return File.AddTarget("/doc", "Doc to XML File", DocFile);
    File.AddExact("/doc", Project.Documentation);
    return true;
}

bool TQXCustomCSharpCompilerAction::AddLibraryPath(TQXResponseFile& File) const
{
    if (Texts::Trim(LibLocations).empty())
        return true;
    std::string Expanded;
    if (!TryExpandExpression("Library Locations", LibLocations, Expanded, false))
        return false;
    // This compiler takes a quoted path only with its switch inside the quotes.
    File.Add(DoubleQuoteString("/lib:" + Expanded, true));
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
