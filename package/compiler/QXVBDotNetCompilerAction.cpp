#include "package/compiler/QXVBDotNetCompilerAction.h"

void TQXCustomVBDotNetCompilerAction::ResetOptions()
{
    TQXManagedCompilerAction::ResetOptions();
    static_cast<TQXVBDotNetOptions&>(*this) = {};
    RootNameSpace.clear();
}

bool TQXCustomVBDotNetCompilerAction::Validate(IQXActionValidationError& Errors)
{
    return ValidateSources(Errors, !Files.empty());
}

bool TQXCustomVBDotNetCompilerAction::GenerateResponseFile(const std::string& BaseDir, TStringList& Lines)
{
    if (TargetCF || IsCompactFramework())
        Lines.Add("/netcf");
    if (Verbose)
        Lines.Add("/verbose");
    if (DelaySign)
        Lines.Add("/delaysign");
    if (!AddOption("/imports", "Import namespace", Imports, Lines) ||
        !AddOption("/keycontainer", "Key Container", KeyContainer, Lines) ||
        !AddOption("/keyfile", "Key File", KeyFile, Lines))
        return false;
    AddLanguageSwitches(Lines);
    return AddOption("/sdkpath", "SDK Path", SDKPath, Lines) &&
           AddOption("/rootnamespace", "Root NameSpace", RootNameSpace, Lines) &&
           AddOption("/libpath", "Library Locations", LibLocations, Lines) &&
           AddFileSwitches("/win32icon", "Icons", Icon, Lines) &&
           AddFileSwitches("/win32resource", "Win32 Resources", Win32Resources, Lines) &&
           TQXManagedCompilerAction::GenerateResponseFile(BaseDir, Lines);
}

void TQXCustomVBDotNetCompilerAction::AddLanguageSwitches(TStringList& Lines) const
{
    if (Quiet)
        Lines.Add("/quiet");
    if (RemoveIntChecks)
        Lines.Add("/removeintchecks");
    if (OptionExplicit)
        Lines.Add("/optionexplicit");
    if (OptionStrict)
        Lines.Add("/optionstrict");
    if (OptionCompare == TVBDotNetOptionCompare::OptCompareText)
        Lines.Add("/optioncompare:text");
}

TQXVBDotNetCompilerAction::TQXVBDotNetCompilerAction()
{
    PublishListSettings({.Icon = true, .RootNameSpace = true, .SDKPath = true});
    Published(Files).Required("*.vb");
    Publish("Verbose", Verbose, "Show all that the compiler says");
    Publish("TargetCF", TargetCF, "Compile for the compact framework");
    Publish("Imports", Imports, "Namespaces to import into every source").List(',');
    Publish("RemoveIntChecks", RemoveIntChecks, "Do not check integers for overflow");
    Publish("Quiet", Quiet, "Do not show the source line of an error");
    Publish("OptionExplicit", OptionExplicit, "Require that variables are declared");
    Publish("OptionStrict", OptionStrict, "Refuse conversions that may lose something");
    Publish("OptionCompare", OptionCompare, "How texts are compared");
    Publish("DelaySign", DelaySign, "Leave room for a signature that is made later");
    Publish("KeyContainer", KeyContainer, "Key container to sign with").Expression();
    Publish("KeyFile", KeyFile, "Key file to sign with").File();
}
