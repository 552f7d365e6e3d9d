// What the file dialogs of the pages offer: pairs of caption and masks, all parted by "|".
#pragma once

namespace FileFilters
{
// Assemblies, in the wording of each page.
constexpr const char* Assemblies = "Assemblies (*.dll, *.exe)|*.dll;*.exe|All Files (*.*)|*.*";
constexpr const char* AssembliesOrAll = "Assemblies (*.dll, *.exe)|*.dll;*.exe|All Files|*.*";
constexpr const char* AssembliesOnly = "Assemblies (*.dll, *.exe)|*.dll;*.exe";
constexpr const char* Assembly = "Assembly (*.dll, *.exe)|*.dll;*.exe";
constexpr const char* AssemblyFiles = "Assembly Files (*.dll)|*.dll|All Files (*.*)|*.*";
constexpr const char* Executables = "Executables|*.exe|All Files|*.*";
constexpr const char* ExecutablesAndLibraries = "Executables, Libraries (*.exe,*.dll)|*.exe;*.dll|All Files|*.*";
constexpr const char* ExesAndDlls = "Assemblies (*.exe;*.dll)|*.exe;*.dll|All files (*.*)|*.*";

constexpr const char* KeyFile = "Key File (*.snk)|*.snk";
constexpr const char* KeyFileOrAll = "Key File (*.snk)|*.snk|All Files|*.*";
constexpr const char* TypeLibraryFile = "TypeLibrary File (*.tlb)|*.tlb";
constexpr const char* TypeLibraryFiles = "TypeLibrary Files (*.tlb)|*.tlb";
constexpr const char* TypeLibrariesAndDlls =
    "TLB & DLL Files (*.tlb;*.dll)|*.tlb;*.dll|TLB Files (*.tlb)|*.tlb|DLL Files "
    "(*.dll)|*.dll|All Files|*.*";
constexpr const char* TextFiles = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*";
constexpr const char* CsvFiles = "CSV Files (*.csv)|*.csv";
constexpr const char* RegFile = "Reg File (*.reg)|*.reg";
constexpr const char* CapitalizationFile = "Capitalization File (*.txt)|*.txt|All Files|*.*";
constexpr const char* Resources = "Resources (*.resx)|*.resx|All Files (*.*)|*.*";
constexpr const char* CompiledResources =
    "Resource (*.resource)|*.resource|Resources (*.resources)|*.resources|All Files (*.*)|*.*";
constexpr const char* MSBuildProjects = "Project Files (*.proj; *.csproj; *.vbproj; "
                                        "*.vjsproj)|*.proj;*.csproj;*.vbproj;*.vjsproj|Text Files (*.txt)|*.txt|All "
                                        "files|*.*";
constexpr const char* ReportFiles = "Report files (*.xml)|*.xml|All files (*.*)|*.*";
constexpr const char* XmlFiles = "XML Files (*.xml)|*.xml|All Files (*.*)|*.*";
constexpr const char* IconFiles = "Icon Files (*.ico)|*.ico|All Files (*.*)|*.*";
constexpr const char* Win32Resources = "Resource Files (*.res)|*.res|All Files (*.*)|*.*";
constexpr const char* ResourceFiles =
    "Resource Files (*.resource)|*.resource|Resources Files (*.resources)|*.resources|All Files (*.*)|*.*";
constexpr const char* CompactResourceCompiler = "CF ResGen Compiler(CFResGen.exe)|CFResGen.exe";
constexpr const char* Sources =
    "C Sharp (*.cs)|*.cs|VB .Net (*.vb)|*.vb|J Sharp (*.jsl)|*.jsl|C++ (*.cpp)|*.cpp|Delphi "
    ".Net (*.pas)|*.pas|All Files (*.*)|*.*";
constexpr const char* LanguageProjects = "C# Project Files (*.csproj)|*.csproj|VB.NET Project Files "
                                         "(*.vbproj)|*.vbproj|J# Project Files (*.vjsproj)|*.vjsproj";
constexpr const char* AllFiles = "All Files|*.*";
} // namespace FileFilters
