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
    Publish("Verbose", Verbose);
    Publish("TargetCF", TargetCF);
    Publish("Imports", Imports);
    Publish("RemoveIntChecks", RemoveIntChecks);
    Publish("Quiet", Quiet);
    Publish("OptionExplicit", OptionExplicit);
    Publish("OptionStrict", OptionStrict);
    Publish("OptionCompare", OptionCompare);
    Publish("DelaySign", DelaySign);
    Publish("KeyContainer", KeyContainer);
    Publish("KeyFile", KeyFile);
}
