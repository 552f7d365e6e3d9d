#include "package/sdktools/QXDotNetTLBExpAction.h"

#include "package/plugin/QXActionHelpers.h"

TTLBExportAction::TTLBExportAction()
{
    Publish("AssemblyName", AssemblyName, "File of the assembly to export")
        .File()
        .Required("%ProjectDir%/bin/Acme.Core.dll");
    Publish("OutputFile", OutputFile, "Type library to write").File().Required("%ProjectDir%/bin/Acme.Core.tlb");
    Publish("NamesCaseFile", NamesCaseFile, "File that tells the capitals of names").File();
    Publish("NoLogo", NoLogo, "Leave out the tool's banner");
    Publish("Silent", Silent, "Leave out messages of success");
}

bool TTLBExportAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    Builder.SetSwitchSeparator("");
    if (!AddExpanded(*this, Builder, "", "AssemblyName", AssemblyName) ||
        !AddExpanded(*this, Builder, "/out:", "OutputFile", OutputFile))
        return false;
    AddFlags(Builder, {{NoLogo, "/nologo"}, {Silent, "/silent"}});
    return AddOptional(*this, Builder, "/names:", "NamesCaseFile", NamesCaseFile);
}

bool TTLBExportAction::Validate(IQXActionValidationError& Errors)
{
    return Require(Errors, {{OutputFile, "Output filename", "Output filename has not been set"},
                            {AssemblyName, "Assembly", "Assembly name has not been set"}});
}
