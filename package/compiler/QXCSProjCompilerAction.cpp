#include "package/compiler/QXCSProjCompilerAction.h"

#include "package/compiler/QXNameSpaceDetection.h"
#include "package/compiler/QXProjectXml.h"
#include "platform/Paths.h"
#include "platform/Text.h"

namespace
{
constexpr TNamedValue<TCSharpFileAlign> FileAlignments[] = {{"512", TCSharpFileAlign::fa512},
                                                            {"1024", TCSharpFileAlign::fa1024},
                                                            {"2048", TCSharpFileAlign::fa2048},
                                                            {"4096", TCSharpFileAlign::fa4096},
                                                            {"8192", TCSharpFileAlign::fa8192}};

bool IsCompactProject(const std::string& FileName)
{
    return Texts::Same(Paths::Extension(FileName), ".csdproj");
}
} // namespace

TQXCSProjCompilerAction::TQXCSProjCompilerAction() : TQXProjectMapping(static_cast<TQXManagedCompilerAction&>(*this))
{
    Publish("ProjectFile", ProjectFile, "The project file to compile").File().Required("src/Acme.Core.csproj");
    Publish("ConfigName", ConfigName, "The configuration to build, as the project file names it")
        .Expression()
        .Required("Release");
    Publish("LibLocations", LibLocations, "Folders in which references are looked for").List(',');
    Publish("CFResGen", CFResGen, "Resource compiler of the compact framework").File();
    Publish("CopyConfigFiles", CopyConfigFiles, "Copy the *.config files of the project folder to the output folder");
    Publish("SDKPath", SDKPath, "Folder of the compact framework").Folder();
    Publish("KeepResponseFile", KeepResponseFile, "Leave the response file on disk after the run");
    AddScripts();
}

bool TQXCSProjCompilerAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    return GetProjectCommandLine(Builder, {"/noconfig", "/nostdlib"});
}

bool TQXCSProjCompilerAction::IsCompactFramework() const
{
    return IsCompactProject(ProjectFile);
}

std::string TQXCSProjCompilerAction::GetProjectFilter() const
{
    return "C# Project Files (*.csproj)|*.csproj|C# CF Project Files(*.csdproj)|*.csdproj|All Files (*.*)|*.*";
}

std::string TQXCSProjCompilerAction::GetCompilerTypeInProjectFile(const std::string& FileName) const
{
    return IsCompactProject(FileName) ? "ECSHARP" : "CSHARP";
}

void TQXCSProjCompilerAction::LoadSettingsFromProjFile(const TXmlElement& Settings)
{
    TQXProjectMapping::LoadSettingsFromProjFile(Settings);
    LoadIcon(Settings);
    RootNameSpace = GetAttributeValueString("RootNamespace", Settings);
    MainClass = GetAttributeValueString("StartupObject", Settings);
}

void TQXCSProjCompilerAction::LoadConfigCompilerOptionsFromProjFile(const TXmlElement& Config)
{
    TQXProjectMapping::LoadConfigCompilerOptionsFromProjFile(Config);
    CompileUnsafe = GetAttributeValueBoolean("AllowUnsafeBlocks", Config);
    Checked = GetAttributeValueBoolean("CheckForOverflowUnderflow", Config);
    DocFile = GetAttributeValueString("DocumentationFile", Config);
    Project.Documentation = DocFile;
    FileAlign =
        FindNamedValue(FileAlignments, GetAttributeValueString("FileAlignment", Config), TCSharpFileAlign::faDefault);
    Incremental = GetAttributeValueBoolean("IncrementalBuild", Config);
    NoConfig = IsCompactFramework();
    NoSTDLib = NoConfig || GetAttributeValueBoolean("NoStdLib", Config);
    WarningLevel = FindWarningLevel(GetAttributeValueString("WarningLevel", Config));
}

bool TQXCSProjCompilerAction::DetectNameSpace(const std::string& FileName, std::string& Name) const
{
    return DetectCSharpNameSpace(FileName, Name);
}
