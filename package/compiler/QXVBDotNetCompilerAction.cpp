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

bool TQXCustomVBDotNetCompilerAction::GenerateResponseFile(TQXResponseFile& File)
{
    File.AddFlag(TargetCF, "/netcf");
    File.AddFlag(Verbose, "/verbose");
    File.AddFlag(DelaySign, "/delaysign");
    if (!File.AddOption("/imports", "Import namespace", Imports) ||
        !File.AddOption("/keycontainer", "Key Container", KeyContainer) ||
        !File.AddOption("/keyfile", "Key File", KeyFile))
        return false;
    File.AddFlag(Quiet, "/quiet");
    File.AddFlag(RemoveIntChecks, "/removeintchecks");
    File.AddFlag(OptionExplicit, "/optionexplicit");
    File.AddFlag(OptionStrict, "/optionstrict");
    File.AddFlag(OptionCompare == TVBDotNetOptionCompare::OptCompareText, "/optioncompare:text");
    return File.AddOption("/sdkpath", "SDK Path", SDKPath) &&
           File.AddOption("/rootnamespace", "Root NameSpace", RootNameSpace) &&
           File.AddOption("/libpath", "Library Locations", LibLocations) && AddIcons(File) &&
           AddWin32Resources(File, "/win32resource") && TQXManagedCompilerAction::GenerateResponseFile(File);
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
