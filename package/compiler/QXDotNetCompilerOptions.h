#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

enum class TDotNetTarget { Exe, Lib, Module, WindowsExe };
constexpr auto QXElements(TDotNetTarget)
{
    return std::array<std::string_view, 4>{"Exe", "Lib", "Module", "WindowsExe"};
}

enum class TDotNetDebugOptions { DebugOff, DebugFull, DebugPDBOnly };
constexpr auto QXElements(TDotNetDebugOptions)
{
    return std::array<std::string_view, 3>{"DebugOff", "DebugFull", "DebugPDBOnly"};
}

enum class TDotNetWarningLevels { WarnOff, WarnLevel1, WarnLevel2, WarnLevel3, WarnLevel4 };
constexpr auto QXElements(TDotNetWarningLevels)
{
    return std::array<std::string_view, 5>{"WarnOff", "WarnLevel1", "WarnLevel2", "WarnLevel3", "WarnLevel4"};
}

/// Generation of a project file.
enum class TDotNetVSVersion { vs2002, vs2003, vsInvalid };

/// A file that is embedded under a name of its own.
struct TQXNamedResource
{
    std::string Path;
    std::string Name;
};

/// What becomes satellite assemblies when the project has been compiled.
struct TQXSatellites
{
    std::string Linker;                                        ///< the tool's file
    std::string Folder;                                        ///< where the compiled resources lie
    std::map<std::string, std::vector<std::string>> Resources; ///< their names there, by culture
    std::string KeyContainer;                                  ///< with which the compiler signs, or empty
    bool IsDelaySigned = false;
};

/// The files that a project brought, exact paths that are neither parted nor expanded: they stand in for the lists
/// that people type, which then only show them.
struct TQXProjectFiles
{
    bool IsLoaded = false;
    std::vector<std::string> Sources;
    std::vector<std::string> References;
    std::vector<std::string> Resources;
    std::vector<TQXNamedResource> NamedResources;
    std::vector<std::string> CompiledResources; ///< those that the project itself names
    std::vector<std::string> LicenseResources;
    std::vector<std::string> Win32Resources;
    std::vector<std::string> Icons;
    TQXSatellites Satellites;
    std::string Documentation; ///< XML file, relative to the project's folder; empty: none
};

/// The compiler settings that the languages share and that loading a project starts afresh: a new object holds
/// the defaults. Texts may hold host expressions.
struct TQXCompilerOptions
{
    bool Optimize = false;
    std::string OutputFile;
    TDotNetTarget Target = TDotNetTarget::Lib;
    std::string Modules;    ///< comma list, passed on as one value
    std::string References; ///< comma list of assembly files
    TDotNetDebugOptions Debug = TDotNetDebugOptions::DebugFull;
    std::string SupressWarnings;
    bool WarnAsError = false;
    std::string Defines;
    std::string LinkResources; ///< resource list: `file` or `file=identifier`, parted by commas or line breaks
    std::string Resources;     ///< resource list
    std::string Icon;
    std::string Win32Resources;
    std::string BaseAddress;
    std::string CodePage;
    std::string MainClass;
    std::string RecurseDir;   ///< brings its own trailing delimiter; empty: all folders
    std::string RecurseFiles; ///< mask
    std::string Files;        ///< sources, parted by ";" or line breaks
    std::string ProjectDir;   ///< where the compiler runs and the response file is written
    TQXProjectFiles Project;
};

/// Which of the settings that not every list compiler has belong to one.
struct TQXListCompilerSettings
{
    bool Icon = false;
    bool CodePage = false;
    bool RootNameSpace = false;
    bool SDKPath = false;
};
