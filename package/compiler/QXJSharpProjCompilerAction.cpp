#include "package/compiler/QXJSharpProjCompilerAction.h"

#include "package/compiler/QXNameSpaceDetection.h"
#include "package/compiler/QXProjectXml.h"

TQXJSProjCompilerAction::TQXJSProjCompilerAction() : TQXProjectMapping(static_cast<TQXManagedCompilerAction&>(*this))
{
    Publish("ProjectFile", ProjectFile, "The project file to compile").File().Required("src/Acme.Core.vjsproj");
    Publish("ConfigName", ConfigName, "The configuration to build, as the project file names it")
        .Expression()
        .Required("Release");
    Publish("CFResGen", CFResGen, "Resource compiler of the compact framework").File();
    Publish("LibLocations", LibLocations, "Folders in which references are looked for").List(',');
    Publish("CopyConfigFiles", CopyConfigFiles, "Copy the *.config files of the project folder to the output folder");
    Publish("KeepResponseFile", KeepResponseFile, "Leave the response file on disk after the run");
}

bool TQXJSProjCompilerAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    return GetProjectCommandLine(Builder, {});
}

bool TQXJSProjCompilerAction::GenerateResponseFile(TQXResponseFile& File)
{
    if (!AdditionalOptions.empty())
        File.Add(AdditionalOptions);
    return TQXCustomJSharpCompilerAction::GenerateResponseFile(File);
}

std::string TQXJSProjCompilerAction::GetProjectFilter() const
{
    return "J# Project Files (*.vjsproj)|*.vjsproj|All Files (*.*)|*.*";
}

std::string TQXJSProjCompilerAction::GetCompilerTypeInProjectFile(const std::string& /*FileName*/) const
{
    return "VISUALJSHARP";
}

void TQXJSProjCompilerAction::LoadSettingsFromProjFile(const TXmlElement& Settings)
{
    TQXProjectMapping::LoadSettingsFromProjFile(Settings);
    JSRootNamespace = GetAttributeValueString("RootNamespace", Settings);
}

void TQXJSProjCompilerAction::LoadConfigCompilerOptionsFromProjFile(const TXmlElement& Config)
{
    TQXProjectMapping::LoadConfigCompilerOptionsFromProjFile(Config);
    WarningLevel = FindWarningLevel(GetAttributeValueString("WarningLevel", Config));
    AdditionalOptions = GetAttributeValueString("AdditionalOptions", Config);
}

bool TQXJSProjCompilerAction::DetectNameSpace(const std::string& FileName, std::string& Name) const
{
    return DetectJSharpNameSpace(FileName, JSRootNamespace, Name);
}
