#include "package/compiler/QXJSharpDotNetCompilerAction.h"

void TQXCustomJSharpCompilerAction::ResetOptions()
{
    TQXManagedCompilerAction::ResetOptions();
    static_cast<TQXJSharpOptions&>(*this) = {};
}

bool TQXCustomJSharpCompilerAction::Validate(IQXActionValidationError& Errors)
{
    return ValidateSources(Errors, !Files.empty());
}

bool TQXCustomJSharpCompilerAction::GenerateResponseFile(const std::string& BaseDir, TStringList& Lines)
{
    AddWarningLevel(WarningLevel, Lines);
    if (SecureScoping)
        Lines.Add("/securescoping");
    if (DisableLangExt)
        Lines.Add("/x");
    return AddPackages(Lines) && AddOption("/lib", "Library Locations", LibLocations, Lines) &&
           AddFileSwitches("/win32res", "Win32 Resources", Win32Resources, Lines) &&
           TQXManagedCompilerAction::GenerateResponseFile(BaseDir, Lines);
}

bool TQXCustomJSharpCompilerAction::AddPackages(TStringList& Lines) const
{
    if (JCPA.IsEmpty())
        return true;
    std::string Folder;
    if (!ExpandProjectDir(Folder))
        return false;
    const std::string FileName = Folder + "jcpa.rsp";
    return WriteLines(FileName, JCPA, "Could not create the jcpa file: ") &&
           AddOption("/jcpa", "JCPA", "@\"" + FileName + '"', Lines);
}

TQXJSharpCompilerAction::TQXJSharpCompilerAction()
{
    PublishListSettings({.CodePage = true});
    Published(Files).Required("*.jsl");
    Publish("WarningLevel", WarningLevel, "Level of the warnings that are shown");
    Publish("SecureScoping", SecureScoping, "Limit who sees members to what they declare");
    Publish("DisableLangExt", DisableLangExt, "Switch the extensions of the language off");
    Publish("JCPA", JCPA, "Names of packages in assemblies, one Package=Namespace a line");
}
