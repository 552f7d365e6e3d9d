#include "package/compiler/QXVBProjCompilerAction.h"

#include "package/compiler/QXNameSpaceDetection.h"
#include "package/compiler/QXProjectXml.h"
#include "platform/Paths.h"
#include "platform/Text.h"

namespace
{
bool IsCompactProject(const std::string& FileName)
{
    return Texts::Same(Paths::Extension(FileName), ".vbdproj");
}
} // namespace

TQXVBProjCompilerAction::TQXVBProjCompilerAction() : TQXProjectMapping(static_cast<TQXManagedCompilerAction&>(*this))
{
    Publish("ProjectFile", ProjectFile, "The project file to compile").File().Required("src/Acme.Core.vbproj");
    Publish("ConfigName", ConfigName, "The configuration to build, as the project file names it")
        .Expression()
        .Required("Release");
    Publish("CFResGen", CFResGen, "Resource compiler of the compact framework").File();
    Publish("LibLocations", LibLocations, "Folders in which references are looked for").List(',');
    Publish("SDKPath", SDKPath, "Folder of the compact framework").Folder();
    Publish("CopyConfigFiles", CopyConfigFiles, "Copy the *.config files of the project folder to the output folder");
    Publish("KeepResponseFile", KeepResponseFile, "Leave the response file on disk after the run");
    AddScripts();
}

bool TQXVBProjCompilerAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    return GetProjectCommandLine(Builder, {"/netcf"});
}

bool TQXVBProjCompilerAction::IsCompactFramework() const
{
    return IsCompactProject(ProjectFile);
}

std::string TQXVBProjCompilerAction::GetProjectFilter() const
{
    return "VB.Net Project Files (*.vbproj)|*.vbproj|VB.NET CF Project Files(*.vbdproj)|*.vbdproj|All Files (*.*)|*.*";
}

std::string TQXVBProjCompilerAction::GetCompilerTypeInProjectFile(const std::string& FileName) const
{
    return IsCompactProject(FileName) ? "EVisualBasic" : "VisualBasic";
}

void TQXVBProjCompilerAction::LoadSettingsFromProjFile(const TXmlElement& Settings)
{
    TQXProjectMapping::LoadSettingsFromProjFile(Settings);
    LoadIcon(Settings);
    RootNameSpace = GetAttributeValueString("RootNamespace", Settings);
    MainClass = GetAttributeValueString("StartupObject", Settings);
    KeyContainer = GetAttributeValueString("AssemblyKeyContainerName", Settings);
    DelaySign = GetAttributeValueBoolean("DelaySign", Settings);
    Project.Satellites.KeyContainer = KeyContainer;
    Project.Satellites.IsDelaySigned = DelaySign;
    OptionCompare = GetAttributeValueString("OptionCompare", Settings) == "Binary"
                        ? TVBDotNetOptionCompare::OptCompareBinary
                        : TVBDotNetOptionCompare::OptCompareText;
    OptionExplicit = GetAttributeValueBoolean("OptionExplicit", Settings);
    OptionStrict = GetAttributeValueBoolean("OptionStrict", Settings);
}

void TQXVBProjCompilerAction::LoadConfigCompilerOptionsFromProjFile(const TXmlElement& Config)
{
    TQXProjectMapping::LoadConfigCompilerOptionsFromProjFile(Config);
    TStringList Written;
    Written.SetCommaText(Defines);
    TStringList Symbols;
    for (const std::string& Symbol : Written)
        if (!Symbol.empty())
            Symbols.Add(Symbol);
    if (GetAttributeValueBoolean("DefineDebug", Config))
        Symbols.SetValue("DEBUG", "True");
    if (GetAttributeValueBoolean("DefineTrace", Config))
        Symbols.SetValue("TRACE", "True");
    Defines = Symbols.CommaText();
    TargetCF = IsCompactFramework();
    RemoveIntChecks = GetAttributeValueBoolean("RemoveIntegerChecks", Config);
}

bool TQXVBProjCompilerAction::LoadCompilerOtherSettings(const std::string& FileName, const TXmlElement& Root)
{
    const auto Elements = Root.SelectNodes(GetCompilerTypeInProjectFile(FileName) + "/Build/Imports/Import");
    Imports.clear();
    for (const TXmlElement& Element : Elements)
        Imports.append(Imports.empty() ? "" : ",").append(Element.Attribute("Namespace"));
    if (Elements.empty())
        SendMessage("A VB.NET project has to hold an Import, and this one holds none : " + FileName);
    return !Elements.empty();
}

bool TQXVBProjCompilerAction::DetectNameSpace(const std::string& FileName, std::string& Name) const
{
    return DetectVBNameSpace(FileName, RootNameSpace, Name);
}
