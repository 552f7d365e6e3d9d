#include "package/sdktools/QXDotNetTLBImpAction.h"

#include "package/plugin/QXActionHelpers.h"

TTLBImportAction::TTLBImportAction()
{
    Publish("TypeLibraryName", TypeLibraryName, "Type library file").File().Required("%ProjectDir%/Acme.tlb");
    Publish("ResourceID", ResourceID, "Number of the type library among the resources of its file").Expression();
    Publish("AssemblyOutFile", AssemblyOutFile, "Interop assembly to write")
        .File()
        .Required("%ProjectDir%/bin/Interop.Acme.dll");
    Publish("Namespace", Namespace, "Namespace of the assembly").Expression();
    Publish("AsmVersion", AsmVersion, "Version of the assembly").Expression();
    Publish("References", References, "Assemblies to refer to, one a line").File();
    Publish("PublicKeyFile", PublicKeyFile, "Public key file for the assembly's strong name").File();
    Publish("KeyFile", KeyFile, "Key pair file to sign with").File();
    Publish("KeyContainer", KeyContainer, "Key container to sign with").Expression();
    Publish("Transform", Transform, "Turn output parameters of dispatch interfaces into results");
    Publish("DelaySign", DelaySign, "Leave room for a signature and sign later");
    Publish("AllowUnsafe", AllowUnsafe, "Leave out security checks of the runtime");
    Publish("NoLogo", NoLogo, "Leave out the tool's banner");
    Publish("Silent", Silent, "Leave out messages of success");
    Publish("Verbose", Verbose, "Say more of what is done");
    Publish("Primary", Primary, "Make a primary interop assembly");
    Publish("SysArray", SysArray, "Import safe arrays as System.Array");
    Publish("StrictRef", StrictRef, "Use only the assemblies that are listed");
}

bool TTLBImportAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    Builder.SetSwitchSeparator("");
    if (!AddTypeLibrary(Builder) || !AddOptional(*this, Builder, "/out:", "AssemblyOutFile", AssemblyOutFile) ||
        !AddOptional(*this, Builder, "/namespace:", "Namespace", Namespace) ||
        !AddOptional(*this, Builder, "/asmversion:", "AsmVersion", AsmVersion) || !AddReferences(Builder) ||
        !AddOptional(*this, Builder, "/publickey:", "PublicKeyFile", PublicKeyFile) ||
        !AddOptional(*this, Builder, "/keyfile:", "KeyFile", KeyFile) ||
        !AddOptional(*this, Builder, "/keycontainer:", "KeyContainer", KeyContainer))
        return false;
    AddFlags(Builder, {{Transform, "/transform:DispRet"},
                       {DelaySign, "/delaysign"},
                       {AllowUnsafe, "/unsafe"},
                       {NoLogo, "/nologo"},
                       {Silent, "/silent"},
                       {Verbose, "/verbose"},
                       {Primary, "/primary"},
                       {SysArray, "/sysarray"},
                       {StrictRef, "/strictref"}});
    return true;
}

/// The tool takes a library among the resources of a file as the file, a backslash and its number.
bool TTLBImportAction::AddTypeLibrary(ICommandLineBuilder& Builder) const
{
    std::string Library;
    std::string Resource;
    if (!TryExpandExpression("TypeLibraryName", TypeLibraryName, Library, true) ||
        !TryExpandExpression("Resource ID", ResourceID, Resource, false))
        return false;
    Builder.AddArgument("", Resource.empty() ? Library : Library + '\\' + Resource);
    return true;
}

bool TTLBImportAction::AddReferences(ICommandLineBuilder& Builder) const
{
    for (std::size_t Index = 0; Index < References.Count(); ++Index)
        if (!AddOptional(*this, Builder, "/reference:", "Reference " + std::to_string(Index + 1), References[Index]))
            return false;
    return true;
}

bool TTLBImportAction::Validate(IQXActionValidationError& Errors)
{
    return Require(Errors, {{TypeLibraryName, "Type Library name", "Type Library name has not been set"},
                            {AssemblyOutFile, "Assembly", "Assembly output filename has not been set"}});
}
