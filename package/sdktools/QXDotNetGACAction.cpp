#include "package/sdktools/QXDotNetGACAction.h"

#include "package/plugin/QXActionHelpers.h"
#include "platform/CommandLines.h"

namespace
{
bool RequireListFile(IQXActionValidationError& Errors, const TQXGACAction& Action)
{
    return Require(Errors, {{Action.AssemblyListFile, "List File", "Assembly list file has not been set"}});
}

bool RequirePath(IQXActionValidationError& Errors, const TQXGACAction& Action)
{
    return Require(Errors, {{Action.AssemblyPath, "Assembly Path", "Assembly path has not been set"}});
}
} // namespace

TQXGACAction::TQXGACAction()
{
    MinimumSDKVersion = "1.0";
    Publish("AssemblyName", AssemblyName, "Display name of the assembly to uninstall").Expression();
    Publish("AssemblyPath", AssemblyPath, "File of the assembly").File();
    Publish("AssemblyListFile", AssemblyListFile, "Text file that lists assemblies").File();
    Publish("UseListFile", UseListFile, "Work on the list file and not on a single assembly");
    Publish("Force", Force, "Overwrite an installed assembly, or remove one in spite of its references");
    Publish("ReferenceCount", ReferenceCount,
            "Trace a reference to the assembly, which the next three settings describe");
    Publish("RefScheme", RefScheme, "Scheme of the traced reference: FILEPATH, UNINSTALL_KEY or OPAQUE").Expression();
    Publish("RefID", RefID, "Identifier of the traced reference: a file, a key or any text, as the scheme wants it")
        .Expression();
    Publish("RefDescription", RefDescription, "Description of the traced reference").Expression();
}

bool TQXGACAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    AddFlags(Builder, {{Force, "/f"}});
    return !ReferenceCount || AddReference(Builder);
}

bool TQXGACAction::AddReference(ICommandLineBuilder& Builder) const
{
    std::string Scheme;
    std::string ID;
    std::string Text;
    if (!ExpandRequired(*this,
                        {{"Scheme", RefScheme, Scheme}, {"ID", RefID, ID}, {"Description", RefDescription, Text}}))
        return false;
    // Three values behind one switch: each brings its own quotes.
    const auto Quoted = [](const std::string& Part) { return CommandLines::Quote(Part, true); };
    Builder.AddArgument("/r", Quoted(Scheme) + ' ' + Quoted(ID) + ' ' + Quoted(Text));
    return true;
}

TGACInstallAction::TGACInstallAction()
{
    SetDescription("GAC Install");
    Published(AssemblyPath).Required("bin/Acme.Core.dll");
}

bool TGACInstallAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    if (!TQXGACAction::GetCommandLine(Builder))
        return false;
    return UseListFile ? AddExpanded(*this, Builder, "/il", "Assembly Listfile", AssemblyListFile)
                       : AddExpanded(*this, Builder, "/i", "Assembly Path", AssemblyPath);
}

bool TGACInstallAction::Validate(IQXActionValidationError& Errors)
{
    return UseListFile ? RequireListFile(Errors, *this) : RequirePath(Errors, *this);
}

TGACUninstallAction::TGACUninstallAction()
{
    SetDescription("GAC Uninstall");
    Published(AssemblyName).Required("Acme.Core");
    Publish("UseAssemblyPath", UseAssemblyPath, "Name the assembly by its file and not by its display name");
}

bool TGACUninstallAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    if (!TQXGACAction::GetCommandLine(Builder))
        return false;
    if (UseListFile)
        return AddExpanded(*this, Builder, "/ul", "Assembly Listfile", AssemblyListFile);
    return UseAssemblyPath ? AddExpanded(*this, Builder, "/u", "Assembly Path", AssemblyPath)
                           : AddExpanded(*this, Builder, "/u", "Assembly", AssemblyName);
}

bool TGACUninstallAction::Validate(IQXActionValidationError& Errors)
{
    if (UseListFile)
        return RequireListFile(Errors, *this);
    if (UseAssemblyPath)
        return RequirePath(Errors, *this);
    return Require(Errors, {{AssemblyName, "Assembly Name", "Assembly name has not been set"}});
}

TGACListAction::TGACListAction()
{
    Publish("DeleteDownloadCache", DeleteDownloadCache, "Clear the download cache instead of listing it");
}

bool TGACListAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    Builder.AddArgument(DeleteDownloadCache ? "/cdl" : "/ldl");
    return true;
}

void TGACListAction::OnFailure(int ExitCode)
{
    TQXGACAction::OnFailure(ExitCode);
    ExplainMono(true, "Mono's gacutil.exe keeps no download cache: it can neither list nor clear one");
}

bool TGACListAction::Validate(IQXActionValidationError& /*Errors*/)
{
    return true;
}
