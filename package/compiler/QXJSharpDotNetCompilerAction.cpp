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

bool TQXCustomJSharpCompilerAction::GenerateResponseFile(TQXResponseFile& File)
{
    AddWarningLevel(WarningLevel, File);
    File.AddFlag(SecureScoping, "/securescoping");
    File.AddFlag(DisableLangExt, "/x");
    return AddPackages(File) && File.AddOption("/lib", "Library Locations", LibLocations) &&
           AddWin32Resources(File, "/win32res") && TQXManagedCompilerAction::GenerateResponseFile(File);
}

bool TQXCustomJSharpCompilerAction::AddPackages(TQXResponseFile& File) const
{
    if (JCPA.IsEmpty())
        return true;
    const std::string FileName = File.BaseDir() + "jcpa.rsp";
    if (!WriteLines(FileName, JCPA, "Could not create the jcpa file: "))
        return false;
    File.Add("/jcpa:@\"" + FileName + '"');
    return true;
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
