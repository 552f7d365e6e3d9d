#include "package/documentation/QXNDocAction.h"

#include "package/plugin/QXActionHelpers.h"
#include "platform/Paths.h"

#include <cstddef>

namespace
{
constexpr std::string_view DocumenterNames[] = {"",     "HtmlHelp2", "JavaDoc", "LaTeX",      "LinearHtml",
                                                "MSDN", "MSDN_2003", "XML",     "VS.NET_2003"};
} // namespace

TQXNDocAction::TQXNDocAction()
{
    LogOutput = true;
    HideWindow = true;
    Publish("NDocMode", NDocMode, "What is documented: a project, the listed assemblies, or those that are found");
    PublishSettings("HtmlHelp2Props", HtmlHelp2Props, "Settings for HTML Help 2, one Name=Value a line");
    PublishSettings("JavaDocProps", JavaDocProps, "Settings for JavaDoc, one Name=Value a line");
    PublishSettings("VSDotNet2003Props", VSDotNet2003Props, "Settings for VS.NET 2003, one Name=Value a line");
    PublishSettings("LaTeXProps", LaTeXProps, "Settings for LaTeX, one Name=Value a line");
    PublishSettings("LinearHtmlProps", LinearHtmlProps, "Settings for LinearHtml, one Name=Value a line");
    PublishSettings("MSDNProps", MSDNProps, "Settings for MSDN, one Name=Value a line");
    PublishSettings("MSDN2003Props", MSDN2003Props, "Settings for MSDN 2003, one Name=Value a line");
    PublishSettings("XMLProps", XMLProps, "Settings for XML, one Name=Value a line");
    Publish("Documenter", Documenter, "The documenter to use; docDefault leaves the choice to the tool");
    Publish("ProjectFile", ProjectFile, "The NDoc project, for ndocUseProjectFile")
        .File()
        .Required("%ProjectDir%/Acme.ndoc");
    Publish("FindDirectory", FindDirectory, "Folder where the search begins, for ndocFindAssemblies").Folder();
    Publish("MaximumDepth", MaximumDepth, "How deep to search, for ndocFindAssemblies; empty: all the way")
        .Expression();
    Publish("Verbose", Verbose, "Have the tool say more of what is done");
    Publish("NamespaceSummFile", NamespaceSummFile, "File with summaries of namespaces").File();
    Publish("Assemblies", Assemblies, "Assemblies, one Assembly=XmlDocFile a line, for ndocAssemblies").File();
    Publish("NDocVersion", NDocVersion, "Version of the tool to run");
    InitProperties();
}

void TQXNDocAction::PublishSettings(std::string_view Name, TStringList& Settings, std::string_view Meaning)
{
    Publish(Name, Settings, Meaning).Expression();
}

TStringList* TQXNDocAction::SettingsOf(TDocumenter ADocumenter)
{
    TStringList* const Lists[] = {nullptr,    &HtmlHelp2Props, &JavaDocProps, &LaTeXProps,       &LinearHtmlProps,
                                  &MSDNProps, &MSDN2003Props,  &XMLProps,     &VSDotNet2003Props};
    return Lists[static_cast<std::size_t>(ADocumenter)];
}

void TQXNDocAction::InitProperties()
{
    for (std::size_t Index = 0; Index < QXElementNames<TDocumenter>().size(); ++Index)
        if (TStringList* Settings = SettingsOf(static_cast<TDocumenter>(Index)))
            CompleteNDocSettings(static_cast<TDocumenter>(Index), *Settings);
}

void TQXNDocAction::Loaded()
{
    TQXExecuteAbstractAction::Loaded();
    InitProperties();
}

std::string TQXNDocAction::GetExecutable()
{
    const IQXNDocOptions* Options = NDocOptions();
    if (!Options)
        return {};
    return NDocVersion == NDoc12 ? Options->GetNDocLocation() : Options->GetNDoc13Location();
}

std::string TQXNDocAction::GetStartingDir(const std::string& Exe)
{
    std::string Folder;
    if (NDocMode == ndocUseProjectFile)
        Folder = ExpandFolderOf(*this, "Project File", ProjectFile);
    else if (NDocMode == ndocFindAssemblies)
        Folder = ExpandFolderOf(*this, "Starting Directory", FindDirectory);
    return Folder.empty() ? Paths::Folder(Exe) : Folder;
}

bool TQXNDocAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    Builder.SetSwitchSeparator("");
    Builder.SetArgumentSeparator(" ");
    const bool IsProject = NDocMode == ndocUseProjectFile;
    if (IsProject)
        AddDocumenter(Builder);
    if (!AddInput(Builder) || (!IsProject && !AddSettings(Builder)))
        return false;
    AddFlags(Builder, {{Verbose, "-verbose"}});
    if (!IsProject &&
        !AddOptional(*this, Builder, "-namespacesummaries=", "Namespace summaries file", NamespaceSummFile))
        return false;
    SendMessage(Builder.GetCommandLineText());
    return true;
}

bool TQXNDocAction::AddInput(ICommandLineBuilder& Builder)
{
    if (NDocMode == ndocUseProjectFile)
        return AddExpanded(*this, Builder, "-project=", "ProjectFile", ProjectFile);
    return NDocMode == ndocAssemblies ? AddAssemblies(Builder) : AddSearch(Builder);
}

bool TQXNDocAction::AddAssemblies(ICommandLineBuilder& Builder) const
{
    if (Assemblies.IsEmpty())
    {
        SendMessage("No assemblies found");
        return false;
    }
    for (std::size_t Index = 0; Index < Assemblies.Count(); ++Index)
        if (!AddAssembly(Builder, Index))
            return false;
    return true;
}

/// A line without "=" is an assembly too.
bool TQXNDocAction::AddAssembly(ICommandLineBuilder& Builder, std::size_t Index) const
{
    const bool IsPair = Assemblies[Index].find('=') != std::string::npos;
    std::string Text;
    std::string Documentation;
    if (!TryExpandExpression("Assembly File", IsPair ? Assemblies.Name(Index) : Assemblies[Index], Text, false))
        return false;
    if (Text.empty())
        return true;
    if (!TryExpandExpression("XML Doc File", Assemblies.ValueAt(Index), Documentation, false))
        return false;
    if (!Documentation.empty())
        Text += ',' + Documentation;
    Builder.AddArgument("", Text);
    return true;
}

bool TQXNDocAction::AddSearch(ICommandLineBuilder& Builder) const
{
    std::string Text;
    std::string Depth;
    if (!TryExpandExpression("Starting Directory", FindDirectory, Text, true) ||
        !TryExpandExpression("Maximum Depth", MaximumDepth, Depth, false))
        return false;
    Text = Paths::WithoutTrailing(Text);
    if (!Depth.empty())
        Text += ',' + Depth;
    Builder.AddArgument("-recurse=", Text);
    return true;
}

void TQXNDocAction::AddDocumenter(ICommandLineBuilder& Builder) const
{
    if (const std::string_view Name = ElementText(DocumenterNames, Documenter); !Name.empty())
        Builder.AddArgument("-documenter=" + std::string(Name));
}

/// The documenter, and of its settings those that have a value.
bool TQXNDocAction::AddSettings(ICommandLineBuilder& Builder)
{
    AddDocumenter(Builder);
    const TStringList* Settings = SettingsOf(Documenter);
    for (std::size_t Index = 0; Settings && Index < Settings->Count(); ++Index)
    {
        const std::string& Line = (*Settings)[Index];
        std::string Expanded;
        if (Settings->ValueAt(Index).empty())
            continue;
        if (!TryExpandExpression("Documenter Property: " + Line, Line, Expanded, false))
            return false;
        Builder.AddArgument("", '-' + Expanded);
    }
    return true;
}

bool TQXNDocAction::Validate(IQXActionValidationError& Errors)
{
    const bool HasTool = RequireTool(
        Errors, GetExecutable(), {"NDoc Options", "Path to NDocConsole.exe not defined, please check Tools->Options"},
        {"NDoc Options", "Path to NDocConsole.exe not correct, please check Tools->Options"});
    const bool HasInput = Require(
        Errors,
        {{NDocMode != ndocUseProjectFile || !ProjectFile.empty(), "Project File", "Project file has not been set"},
         {NDocMode != ndocAssemblies || !Assemblies.IsEmpty(), "Assemblies", "Please specify at least one assembly"},
         {NDocMode != ndocFindAssemblies || !FindDirectory.empty(), "Directory", "Search directory has not been set"}});
    return HasTool && HasInput;
}
