#include "package/pages/QXListCompilerFrames.h"

#include "host/QXCodePages.h"
#include "package/pages/QXCodePagePicker.h"
#include "package/pages/QXDotNetResourceListForm.h"
#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "platform/Text.h"

using TAction = TQXManagedCompilerAction;

namespace
{
void PickCodePage(TEdit& Edit)
{
    TCodePageForm Form;
    if (QXShowForm(Form))
        Edit.Change(std::to_string(Form.GetCodePage()));
}

/// What stands beside the number of a code page; a text that is no number counts as 0.
std::string CodePageName(const std::string& Number)
{
    return Number.empty() ? std::string() : CodePageToString(Texts::ParseWhole<int>(Number).value_or(0));
}

void BrowseResources(TEdit& Edit)
{
    Edit.OnBrowse = [&Edit] {
        std::string List = Edit.Text;
        if (EditResourceList("Resource Files", FileFilters::ResourceFiles, List))
            Edit.Change(List);
    };
}
} // namespace

TListCompilerMainFrame::TListCompilerMainFrame(const std::string& Extension)
    : lblFilesHint(*this, "lblFilesHint",
                   "(eg. *." + Extension + " or MyFile." + Extension + ", separate multiple files with a semicolon)")
{
    Bind(txtProjectDirectory, &TAction::ProjectDir);
    Bind(txtFilesToCompile, &TAction::Files);
    BrowseFolderFromExpanded(txtProjectDirectory, "Select the working folder");
    BrowseList(txtFilesToCompile, {.Title = "Files to compile", .Caption = "Files", .Mask = "*.*", .Separator = ";"});
}

TOutputGroup::TOutputGroup(TSurface& APage, std::string_view Filter) : TCompilerGroup(APage)
{
    Page.Bind(txtOutputfile, &TAction::OutputFile);
    Page.Bind(cbTarget, &TAction::Target);
    Browse(txtOutputfile, Filter);
}

TSearchGroup::TSearchGroup(TSurface& APage, std::string_view FolderHint, const std::string& Extension)
    : TCompilerGroup(APage), lblSearchSubDirHint(Page, "lblSearchSubDirHint", FolderHint),
      lblSearchFileHint(Page, "lblSearchFileHint", "eg. *." + Extension)
{
    Page.Bind(txtSearchSubDir, &TAction::RecurseDir);
    Page.Bind(txtSearchFile, &TAction::RecurseFiles);
}

TDefinesGroup::TDefinesGroup(TSurface& APage) : TCompilerGroup(APage)
{
    Page.Bind(chkOptimize, &TAction::Optimize);
    Page.Bind(txtDefine, &TAction::Defines);
    Page.Bind(txtBaseAddress, &TAction::BaseAddress);
    BrowseList(
        txtDefine,
        {.Title = "Define Preprocessor Symbols", .Caption = "Preprocessor Symbols", .Separator = ";", .IsWords = true});
}

TCodePageGroup::TCodePageGroup(TSurface& APage) : TCompilerGroup(APage)
{
    Page.Bind(txtCodePage, &TAction::CodePage);
    Page.AddRule([this] { lblCodePage.Caption = CodePageName(txtCodePage.Text); });
    txtCodePage.OnBrowse = [this] { PickCodePage(txtCodePage); };
}

TMainClassGroup::TMainClassGroup(TSurface& APage, std::string_view Caption, std::string_view Hint)
    : TCompilerGroup(APage), txtMainMethod(Page, "txtMainMethod", Caption),
      lblMainMethodHint(Page, "lblMainMethodHint", Hint)
{
    Page.Bind(txtMainMethod, &TAction::MainClass);
}

TNoLogoGroup::TNoLogoGroup(TSurface& APage) : TCompilerGroup(APage)
{
    Page.Bind(chkNoLogo, &TAction::NoLogo);
}

TUTF8Group::TUTF8Group(TSurface& APage) : TCompilerGroup(APage)
{
    Page.Bind(chkUTF8, &TAction::OutputInUTF8);
}

TListCompilerDebuggingFrame::TListCompilerDebuggingFrame()
{
    Bind(cbDebug, &TAction::Debug);
    Bind(txtSupressWarnings, &TAction::SupressWarnings);
}

TWarnAsErrorGroup::TWarnAsErrorGroup(TSurface& APage) : TCompilerGroup(APage)
{
    Page.Bind(chkWarnAsError, &TAction::WarnAsError);
}

TModulesGroup::TModulesGroup(TSurface& APage) : TCompilerGroup(APage)
{
    Page.Bind(txtAddModules, &TAction::Modules);
    BrowseList(txtAddModules, {.Title = "Modules to be part of the assembly", .Caption = "Add Modules", .Mask = "*.*"});
}

TReferencesGroup::TReferencesGroup(TSurface& APage, int LocationOption) : TCompilerGroup(APage)
{
    Page.Bind(txtAssemblyLocation, &TAction::LibLocations);
    Page.Bind(txtReferences, &TAction::References);
    BrowseList(txtAssemblyLocation, {.Title = "Location of Assemblies",
                                     .Caption = "Add Assembly Locations",
                                     .Mask = "*.*",
                                     .Option = LocationOption});
    BrowseList(
        txtReferences,
        {.Title = "Import metadata from files that contain assemblies", .Caption = "Add References", .Mask = "*.*"});
}

TListCompilerResourcesFrame::TListCompilerResourcesFrame(std::string_view LinkCaption)
    : txtResource(*this, "txtResource", LinkCaption)
{
    Bind(txtResource, &TAction::LinkResources);
    Bind(txtEmbedResrouce, &TAction::Resources);
    BrowseResources(txtResource);
    BrowseResources(txtEmbedResrouce);
}

TIconGroup::TIconGroup(TSurface& APage) : TCompilerGroup(APage)
{
    Page.Bind(txtICOFile, &TAction::Icon);
}

TWin32ResourcesGroup::TWin32ResourcesGroup(TSurface& APage) : TCompilerGroup(APage)
{
    Page.Bind(txtWin32Res, &TAction::Win32Resources);
    Browse(txtWin32Res, FileFilters::Win32Resources);
}
