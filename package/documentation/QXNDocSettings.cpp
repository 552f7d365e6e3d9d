#include "package/documentation/QXNDocSettings.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <span>
#include <string>

namespace
{
/// Runs of names in the tool's spelling, parted by blanks.
using TRuns = std::span<const std::string_view>;

constexpr std::size_t Count(TRuns Runs)
{
    std::size_t Names = 0;
    for (const std::string_view Run : Runs)
    {
        ++Names;
        for (const char Character : Run)
            Names += Character == ' ' ? 1 : 0;
    }
    return Names;
}

constexpr std::string_view Common =
    "ShowMissingSummaries ShowMissingRemarks ShowMissingParams ShowMissingReturns ShowMissingValues "
    "DocumentInternals DocumentProtected DocumentPrivates DocumentProtectedInternalAsProtected "
    "DocumentEmptyNamespaces IncludeAssemblyVersion CopyrightText CopyrightHref ReferencesPath "
    "SkipNamespacesWithoutSummaries UseNamespaceDocSummaries AutoPropertyBackerSummaries "
    "AutoDocumentConstructors DocumentAttributes ShowTypeIdInAttributes DocumentedAttributes "
    "GetExternalSummaries EditorBrowsableFilter UseNDocXmlFile";
constexpr std::string_view Late =
    "DocumentInheritedMembers DocumentInheritedFrameworkMembers DocumentExplicitInterfaceImplementations "
    "DocumentSealedProtected AssemblyVersionInfo FeedbackEmailAddress Preliminary SdkDocVersion "
    "SdkDocLanguage DocumentInheritedAttributes IncludeDefaultThreadSafety StaticMembersDefaultToSafe "
    "InstanceMembersDefaultToSafe CleanIntermediates";
constexpr std::string_view HtmlHelp2[] = {
    "CharacterSet LangID DeleteCHM AugmentXmlDataIslands RegisterTitleWithNamespace "
    "ParentCollectionNamespace RegisterTitleAsCollection OutputDirectory HtmlHelpName IncludeFavorites "
    "Title SplitTOCs DefaulTOC IncludeHierarchy ShowVisualBasic RootPageContainsNamespaces "
    "SortTOCByNamespace OutputTarget HeaderHtml FooterHtml FilesToInclude LinkToSdkDocVersion",
    Common};
static_assert(Count(HtmlHelp2) == 46);
constexpr std::string_view JavaDoc[] = {
    "OutputDirectory HtmlHelpName IncludeFavorites Title SplitTOCs DefaulTOC IncludeHierarchy "
    "ShowVisualBasic RootPageContainsNamespaces SortTOCByNamespace OutputTarget HeaderHtml FooterHtml "
    "FilesToInclude LinkToSdkDocVersion",
    Common,
    "DocumentInheritedMembers DocumentInheritedFrameworkMembers DocumentExplicitInterfaceImplementations "
    "DocumentSealedProtected FeedbackEmailAddress Preliminary SdkDocVersion SdkDocLanguage "
    "DocumentInheritedAttributes IncludeDefaultThreadSafety StaticMembersDefaultToSafe "
    "InstanceMembersDefaultToSafe CleanIntermediates"};
static_assert(Count(JavaDoc) == 52);
constexpr std::string_view LaTeX[] = {"Title OutputDirectory", Common,
                                      "TextFileFullName TexFileBaseName LatexCompiler TexFileFullPath", Late};
static_assert(Count(LaTeX) == 44);
constexpr std::string_view LinearHtml[] = {
    "IncludeTypeMemberDetails OutputDirectory MethodParametersInTable TypeIncludeRegexp "
    "NamespaceExcludeRegexp Title IncludeHierarchy SortTOCByNamespace HeaderHtml FooterHtml "
    "FilesToInclude",
    Common,
    "DocumentExplicitInterfaceImplementations DocumentSealedProtected AssemblyVersionInfo SdkDocVersion "
    "SdkDocLanguage DocumentInheritedAttributes IncludeDefaultThreadSafety StaticMembersDefaultToSafe "
    "InstanceMembersDefaultToSafe CleanIntermediates"};
static_assert(Count(LinearHtml) == 45);
constexpr std::string_view MSDN[] = {
    "OutputDirectory TextFileFullName TexFileBaseName LatexCompiler TexFileFullPath", Common,
    "HtmlHelpName Title ShowVisualBasic OutputTarget SdkLinksOnWeb IncludeFavorites RootPageTOCName "
    "RootPageFileName RootPageContainsNamespaces BinaryTOC HeaderHtml FooterHtml FilesToInclude "
    "AdditionalContentResourceDirectory ExtensibilityStylesheet LangID",
    Late};
static_assert(Count(MSDN) == 59);
constexpr std::string_view MSDN2003[] = {
    "OutputDirectory HtmlHelpName Title OutputTarget SdkLinksOnWeb IncludeFavorites RootPageTOCName "
    "RootPageFileName RootPageContainsNamespaces BinaryTOC HeaderHtml FooterHtml FilesToInclude "
    "AdditionalContentResourceDirectory ExtensibilityStylesheet LangID ShowMissingSummaries "
    "ShowMissingRemarks ShowMissingParams ShowMissingReturns ShowMissingValues DocumentInheritedMembers "
    "DocumentInheritedFrameworkMembers DocumentExplicitInterfaceImplementations DocumentInternals "
    "DocumentProtected DocumentSealedProtected DocumentPrivates DocumentProtectedInternalAsProtected "
    "DocumentEmptyNamespaces SkipNamespacesWithoutSummaries EditorBrowsableFilter AssemblyVersionInfo "
    "CopyrightText CopyrightHref FeedbackEmailAddress UseNamespaceDocSummaries "
    "AutoPropertyBackerSummaries AutoDocumentConstructors Preliminary SdkDocVersion SdkDocLanguage "
    "DocumentAttributes DocumentInheritedAttributes ShowTypeIdInAttributes DocumentedAttributes "
    "IncludeDefaultThreadSafety StaticMembersDefaultToSafe InstanceMembersDefaultToSafe UseNDocXmlFile "
    "CleanIntermediates"};
static_assert(Count(MSDN2003) == 51);
constexpr std::string_view XML[] = {"OutputFile", Common, Late};
static_assert(Count(XML) == 39);
constexpr std::string_view VSDotNet2003[] = {
    "OutputDirectory HtmlHelpName Title IncludeHierarchy RegisterTitleWithNamespace CollectionNamespace "
    "RegisterTitleAsCollection GenerateCollectionFiles PlugInNamespace CollectionTOCStyle "
    "LinkToSdkDocVersion CharacterSet LangID BuildSeparateIndexFile DocSetList Version "
    "CreateFullTextIndex IncludeDefaultStopWordList UseHelpNamespaceMappingFile HeaderHtml FooterHtml "
    "OmitSyntaxSection IntroductionPage AboutPageInfo EmptyIndexTermPage NavFailPage AboutPageIconPage "
    "AdditionalContentResourceDirectory ExtensibilityStylesheet ShowMissingSummaries ShowMissingRemarks "
    "ShowMissingParams ShowMissingReturns ShowMissingValues DocumentExplicitInterfaceImplementations "
    "DocumentInternals DocumentProtected DocumentSealedProtected DocumentPrivates "
    "DocumentProtectedInternalAsProtected DocumentEmptyNamespaces SkipNamespacesWithoutSummaries "
    "EditorBrowsableFilter IncludeAssemblyVersion CopyrightText CopyrightHref ReferencesPath "
    "FeedbackEmailAddress UseNamespaceDocSummaries AutoPropertyBackerSummaries AutoDocumentConstructors "
    "GetExternalSummaries Preliminary UseNDocXmlFile CleanIntermediates DocumentAttributes "
    "ShowTypeIdInAttributes DocumentedAttributes InheritPlatformSupport DefaultOSSupport "
    "SupportCompactFrameworkByDefault SupportMONOFrameworkByDefault AdditionalFrameworkList "
    "AdditionalOSList AssemblyVersionInfo DocumentInheritedAttributes DocumentInheritedFrameworkMembers "
    "DocumentInheritedMembers IncludeDefaultThreadSafety InstanceMembersDefaultToSafe SdkDocLanguage "
    "SdkDocVersion StaticMembersDefaultToSafe"};
static_assert(Count(VSDotNet2003) == 73);

TRuns RunsOf(TDocumenter Documenter)
{
    static constexpr TRuns Table[] = {{}, HtmlHelp2, JavaDoc, LaTeX, LinearHtml, MSDN, MSDN2003, XML, VSDotNet2003};
    static_assert(std::size(Table) == QXElements(TDocumenter{}).size());
    return Table[static_cast<std::size_t>(Documenter)];
}

void AddIfMissing(TStringList& Settings, std::string_view Name)
{
    if (!Settings.IndexOfName(Name))
        Settings.Add(std::string(Name) + '=');
}
} // namespace

void CompleteNDocSettings(TDocumenter Documenter, TStringList& Settings)
{
    for (std::string_view Run : RunsOf(Documenter))
        while (!Run.empty())
        {
            const std::size_t End = std::min(Run.find(' '), Run.size());
            AddIfMissing(Settings, Run.substr(0, End));
            Run.remove_prefix(std::min(End + 1, Run.size()));
        }
}
