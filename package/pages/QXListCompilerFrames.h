// What the pages of the file-list compilers have in common: what a page begins with is its base, what comes later in it
// is a group of controls. Both are bound to the settings that the compilers share.
#pragma once

#include "package/compiler/QXDotNetManagedCompilerAction.h"
#include "package/pages/QXDotNetToolBaseFrame.h"

#include <string>
#include <string_view>

/// Controls that bind themselves to the page on which they stand.
struct TCompilerGroup
{
    explicit TCompilerGroup(TSurface& APage) : Page(APage) {}
    TSurface& Page;
};

/// First page. Extension is that of the language's sources.
class TListCompilerMainFrame : public TDotNetToolBaseFrame
{
public:
    explicit TListCompilerMainFrame(const std::string& Extension);
    [[nodiscard]] std::string PageName() const override { return "Files && Directories"; }

    TLabel lblInput{*this, "lblInput", "Input Files"};
    TEdit txtProjectDirectory{*this, "txtProjectDirectory", "Project Directory:"};
    TEdit txtFilesToCompile{*this, "txtFilesToCompile", "File(s) to compile:"};
    TLabel lblFilesHint;
    TLabel lblOutput{*this, "lblOutput", "Output Files"};
};

struct TOutputGroup : TCompilerGroup
{
    explicit TOutputGroup(TSurface& APage, std::string_view Filter = {});
    TEdit txtOutputfile{Page, "txtOutputfile", "Output file:"};
    TComboBox cbTarget{Page, "cbTarget", "Target type:", {"Executable", "Library", "Module", "Windows Executable"}};
};

struct TSearchGroup : TCompilerGroup
{
    TSearchGroup(TSurface& APage, std::string_view FolderHint, const std::string& Extension);
    TLabel lblFind{Page, "lblFind", "Find Source Files in Subdirectories"};
    TEdit txtSearchSubDir{Page, "txtSearchSubDir", "Sub-directory"};
    TLabel lblSearchSubDirHint;
    TEdit txtSearchFile{Page, "txtSearchFile", "Files"};
    TLabel lblSearchFileHint;
};

class TListCompilerOptionsFrame : public TFrame
{
public:
    [[nodiscard]] std::string PageName() const override { return "Options"; }
};

struct TDefinesGroup : TCompilerGroup
{
    explicit TDefinesGroup(TSurface& APage);
    TCheckBox chkOptimize{Page, "chkOptimize", "Optimize"};
    TEdit txtDefine{Page, "txtDefine", "Define preprocessor symbols:"};
    TLabel lblDefineHint{Page, "lblDefineHint", "(separate multiple symbols with a semicolon)"};
    TEdit txtBaseAddress{Page, "txtBaseAddress", "Base Address"};
    TLabel lblBaseAddressHint{Page, "lblBaseAddressHint", "(decimal, hexadecimal, or octal number - if target is dll)"};
};

struct TCodePageGroup : TCompilerGroup
{
    explicit TCodePageGroup(TSurface& APage);
    TEdit txtCodePage{Page, "txtCodePage", "Code Page"};
    TLabel lblCodePage{Page, "lblCodePage", ""};
};

struct TMainClassGroup : TCompilerGroup
{
    TMainClassGroup(TSurface& APage, std::string_view Caption, std::string_view Hint);
    TEdit txtMainMethod;
    TLabel lblMainMethodHint;
};

struct TNoLogoGroup : TCompilerGroup
{
    explicit TNoLogoGroup(TSurface& APage);
    TCheckBox chkNoLogo{Page, "chkNoLogo", "Suppress compiler banner information"};
};

struct TUTF8Group : TCompilerGroup
{
    explicit TUTF8Group(TSurface& APage);
    TCheckBox chkUTF8{Page, "chkUTF8", "Display compiler output using UTF-8 encoding"};
};

class TListCompilerDebuggingFrame : public TFrame
{
public:
    TListCompilerDebuggingFrame();
    [[nodiscard]] std::string PageName() const override { return "Debugging"; }

    TLabel lblDebugging{*this, "lblDebugging", "Debugging/Error Checking Options"};
    TComboBox cbDebug{*this, "cbDebug", "Debug Information:", {"Debug Off", "Full Debug", "Debug PDB Only"}};
    TEdit txtSupressWarnings{*this, "txtSupressWarnings", "Supress Warnings:"};
    TLabel lblSupressWarningsHint{*this, "lblSupressWarningsHint", "Separate multiple warning numbers with a comma"};
};

struct TWarningLevelGroup : TCompilerGroup
{
    using TCompilerGroup::TCompilerGroup;
    // Long entries stand apart, so that none of them is taken for two.
    static constexpr const char* LessSevere = "2 - Displays level 1 warnings plus certain, less-severe warnings, such "
                                              "as warnings about hiding class members.";
    static constexpr const char* Constant =
        "3 - Displays level 2 warnings plus certain, less-severe warnings, such as warnings about expressions that "
        "always evaluate to true or false.";
    TComboBox cbWarningLevel{Page,
                             "cbWarningLevel",
                             "Set warning level:",
                             {"0 - Turns off emission of all warning messages.",
                              "1 - Displays severe warning messages.", LessSevere, Constant,
                              "4 - Displays all level 3 warnings plus informational warnings."}};
};

struct TWarnAsErrorGroup : TCompilerGroup
{
    explicit TWarnAsErrorGroup(TSurface& APage);
    TCheckBox chkWarnAsError{Page, "chkWarnAsError", "Promote Warnings to errors"};
};

class TListCompilerAssembliesFrame : public TFrame
{
public:
    [[nodiscard]] std::string PageName() const override { return "Assemblies"; }

    TLabel lblAssemblies{*this, "lblAssemblies", "Assemblies"};
};

struct TModulesGroup : TCompilerGroup
{
    explicit TModulesGroup(TSurface& APage);
    TEdit txtAddModules{Page, "txtAddModules", "Modules to be part of this assembly"};
};

struct TReferencesGroup : TCompilerGroup
{
    /// LocationOption: of the editor of the folders in which references are looked for.
    TReferencesGroup(TSurface& APage, int LocationOption);
    TEdit txtAssemblyLocation{Page, "txtAssemblyLocation", "Location of assemblies referenced by means of /reference"};
    TEdit txtReferences{Page, "txtReferences", "Import metadata from a file that contains an assembly (/reference)"};
};

class TListCompilerResourcesFrame : public TFrame
{
public:
    explicit TListCompilerResourcesFrame(std::string_view LinkCaption = "Create links to managed resources");
    [[nodiscard]] std::string PageName() const override { return "Resources"; }

    TLabel lblResources{*this, "lblResources", "Resources"};
    TEdit txtResource;
    TEdit txtEmbedResrouce{*this, "txtEmbedResrouce", "Embed .NET Framework resources into the output file"};
};

struct TIconGroup : TCompilerGroup
{
    explicit TIconGroup(TSurface& APage);
    TEdit txtICOFile{Page, "txtICOFile", "Insert .ico files into the output file"};
};

struct TWin32ResourcesGroup : TCompilerGroup
{
    /// Browses for one file.
    explicit TWin32ResourcesGroup(TSurface& APage);
    TEdit txtWin32Res{Page, "txtWin32Res", "Insert Win32 resources into the output file"};
};
