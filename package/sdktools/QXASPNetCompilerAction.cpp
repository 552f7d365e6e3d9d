#include "package/sdktools/QXASPNetCompilerAction.h"

#include "package/plugin/QXActionHelpers.h"

TASPNetCompilerAction::TASPNetCompilerAction()
{
    MinimumSDKVersion = "2.0";
    Publish("UsePathSpecifier", UsePathSpecifier,
            "How the application is named: by its virtual path, its metabase path, or its virtual path and folder");
    Publish("FullMetabasePath", FullMetabasePath, "The application's full path in the metabase of IIS").Expression();
    Publish("VirtualDirPath", VirtualDirPath, "The application's virtual path in IIS").Expression();
    Publish("PhysicalDirPath", PhysicalDirPath, "The application's folder").Folder();
    Publish("UseTargetDir", UseTargetDir, "Compile to the target folder and not in place");
    Publish("TargetDirPath", TargetDirPath, "Folder to compile to").Folder();
    Publish("MakeUpdatable", MakeUpdatable, "Let the compiled application be changed later");
    Publish("Overwrite", Overwrite, "Overwrite what lies in the target folder");
    Publish("Debug", Debug, "Emit debug information");
    Publish("FixedNames", FixedNames, "Give the assemblies names that stay");
    Publish("FullRebuild", FullRebuild, "Compile everything anew, in place");
    Publish("UseStrongName", UseStrongName, "How the assemblies are signed");
    Publish("KeyFilePath", KeyFilePath, "Key file to sign with").File();
    Publish("KeyContainerName", KeyContainerName, "Key container to sign with").Expression();
    Publish("AllowPartiallyTrusted", AllowPartiallyTrusted,
            "Allow callers that are trusted in part; with a key container");
    Publish("DelaySigning", DelaySigning, "Leave room for a signature and sign later; with a key container");
}

bool TASPNetCompilerAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    return AddApplication(Builder) && AddTarget(Builder) && AddStrongName(Builder);
}

bool TASPNetCompilerAction::AddApplication(ICommandLineBuilder& Builder) const
{
    if (UsePathSpecifier == apMetabase)
        return AddExpanded(*this, Builder, "-m", "Full IIS Metabase Path", FullMetabasePath, amQuoted);
    if (!AddExpanded(*this, Builder, "-v", "Virtual Directory Path", VirtualDirPath, amQuoted))
        return false;
    return UsePathSpecifier != apVirtualPhysical ||
           AddExpanded(*this, Builder, "-p", "Physical Directory Path", PhysicalDirPath, amQuoted);
}

bool TASPNetCompilerAction::AddTarget(ICommandLineBuilder& Builder) const
{
    if (!UseTargetDir)
    {
        AddFlags(Builder, {{FullRebuild, "-c"}});
        return true;
    }
    AddFlags(Builder, {{MakeUpdatable, "-u"}, {Overwrite, "-f"}, {Debug, "-d"}});
    if (!AddExpanded(*this, Builder, "", "Target Directory Path", TargetDirPath, amQuoted))
        return false;
    AddFlags(Builder, {{FixedNames, "-fixednames"}});
    return true;
}

bool TASPNetCompilerAction::AddStrongName(ICommandLineBuilder& Builder) const
{
    if (UseStrongName == snKeyFile)
        return AddExpanded(*this, Builder, "-keyfile", "Key File Path", KeyFilePath, amQuoted);
    if (UseStrongName == snNone)
        return true;
    if (!AddExpanded(*this, Builder, "-keycontainer", "Key Container Name", KeyContainerName, amQuoted))
        return false;
    AddFlags(Builder, {{AllowPartiallyTrusted, "-aptca"}, {DelaySigning, "-delaySign"}});
    return true;
}

bool TASPNetCompilerAction::BeforeExecute(ICommandLineBuilder& Builder)
{
    if (!TQXDotNetAction::BeforeExecute(Builder))
        return false;
    SendMessage("Command Line: " + GetDotNetTool() + ' ' + Builder.GetCommandLineText());
    return true;
}
