#include "package/compiler/QXProjectLoader.h"

#include "host/QXFiles.h"
#include "host/QXUtilities.h"
#include "package/compiler/QXProjectXml.h"
#include "package/compiler/QXReferenceResolver.h"
#include "package/compiler/QXResourceProcessor.h"
#include "package/plugin/QXActionHelpers.h"
#include "platform/Paths.h"
#include "platform/Text.h"

namespace
{
/// Projects of the later format name it up to the year.
constexpr std::string_view MSBuildNameSpace = "http://schemas.microsoft.com/developer/msbuild";
} // namespace

std::string TQXVisualStudioProjectLoader::LanguagePath(std::string_view Path) const
{
    return FMapping.GetCompilerTypeInProjectFile(FLoad.FileName) + std::string(Path);
}

bool TQXVisualStudioProjectLoader::Load()
{
    if (!Begin())
        return false;
    static_cast<void>(MakeFolder("obj", FLoad.Folder));
    Reset();
    if (FLoad.IsCompact)
        FLoad.CompactSystemFolder = Paths::WithTrailing(FAction.SDKPath);

    std::string Content;
    try
    {
        Content = QXFiles().Read(FLoad.FileName);
    }
    catch (const std::exception& Error)
    {
        return Fail(std::string("Error Opening Project File : ") + Error.what());
    }
    TXmlDocument Document;
    if (!Document.LoadFromProject(Content))
        return FailParsing(Document.ParseError());
    return LoadDocument(Document.DocumentElement());
}

bool TQXVisualStudioProjectLoader::LoadDocument(const TXmlElement& Root)
{
    if (!CheckVersion(Root) || !LoadSettings(Root))
        return false;
    Log("Resolving References....");
    if (!TQXReferenceResolver(FAction, FLoad).Resolve(Root.SelectNodes(LanguagePath("/Build/References/Reference"))) ||
        !LoadFiles(Root))
        return false;
    if (!FMapping.LoadCompilerOtherSettings(FLoad.FileName, Root))
        return Fail("Error loading compiler setttings!");
    ShowFiles();
    if (FAction.CopyConfigFiles)
        CopyConfigurationFiles();
    return true;
}

bool TQXVisualStudioProjectLoader::CheckVersion(const TXmlElement& Root) const
{
    if (FMapping.DetectVSVersion(FLoad.FileName, Root) != TDotNetVSVersion::vsInvalid)
        return true;
    if (Root.Attribute("xmlns").starts_with(MSBuildNameSpace))
        return Fail(
            Paths::FileName(FLoad.FileName) +
            " is a Visual Studio 2005 project file (MSBuild.) It needs to be compiled with the MSBuild action.");
    return Fail("Invalid Visual Studio Project Version");
}

bool TQXVisualStudioProjectLoader::LoadSettings(const TXmlElement& Root)
{
    const auto Settings = Root.SelectNode(LanguagePath("/Build/Settings"));
    if (!Settings)
        return Fail("Unable to find Settings node in project document");
    const bool IsLibrary = Texts::Same(Settings->Attribute("OutputType"), "Library");
    FLoad.AssemblyFileName = Settings->Attribute("AssemblyName") + (IsLibrary ? ".dll" : ".exe");
    if (const std::string KeyFile = Settings->Attribute("AssemblyOriginatorKeyFile"); !KeyFile.empty())
        FLoad.KeyFile = ExpandRelativePath(KeyFile, FLoad.Folder);
    if (const auto Platform = Settings->SelectNode("Platform"))
        FLoad.PlatformName = Platform->Attribute("Name");
    FLoad.RootNameSpace = Settings->Attribute("RootNamespace");
    FMapping.LoadSettingsFromProjFile(*Settings);
    if (!SelectConfiguration(*Settings))
        return false;
    FollowCompiler(FMapping.DetectVSVersion(FLoad.FileName, Root) == TDotNetVSVersion::vs2002 ? "v1.0" : "v1.1");
    return true;
}

bool TQXVisualStudioProjectLoader::SelectConfiguration(const TXmlElement& Settings)
{
    const auto Configurations = Settings.SelectNodes("Config");
    if (Configurations.empty())
        return Fail("Unable to load Config Nodes in project document");
    const TXmlElement* Config = FindConfiguration(Configurations);
    if (!Config)
        return FailConfiguration("Configuration : ", Configurations);
    FMapping.LoadConfigCompilerOptionsFromProjFile(*Config);
    const std::string OutputPath = Config->Attribute("OutputPath");
    if (!CheckTarget(FAction, "OutputPath", OutputPath))
        return false;
    FLoad.OutputFolder = MakeFolder(OutputPath, FLoad.Folder);
    return CompleteOutputFile("AssemblyName") && PrepareDocumentation();
}

bool TQXVisualStudioProjectLoader::LoadFiles(const TXmlElement& Root)
{
    const auto Elements = Root.SelectNodes(LanguagePath("/Files/Include/File"));
    if (Elements.empty())
        return Fail("No Files to compile!");
    if (!CheckResourceCompiler())
        return false;
    FLoad.ObjectFolder = MakeFolder("obj/" + FLoad.ConfigFolder, FLoad.Folder);
    TQXResourceProcessor Resources(FAction, FLoad);
    Resources.ListFormResources(
        Root.SelectNodes(LanguagePath("/Files/Include/File[@BuildAction='EmbeddedResource' and @DependentUpon]")),
        "DependentUpon");
    for (const TXmlElement& Element : Elements)
    {
        const std::string BuildAction = Element.Attribute("BuildAction");
        if (BuildAction == "Compile")
            AddSource(GetProjectPath(Element));
        else if (BuildAction == "EmbeddedResource" && !Resources.ProcessVSEmbeddedResource(Element))
            return false;
    }
    return true;
}

void TQXVisualStudioProjectLoader::CopyConfigurationFiles() const
{
    for (const std::string& Name : QXFiles().FileNames(FLoad.Folder, "*.config"))
    {
        const bool OfProgram = Texts::Same(Name, "app.config") && FLoad.AssemblyFileName.ends_with(".exe");
        const std::string& Folder = FLoad.OutputFolder;
        const std::string Target = Folder + (OfProgram ? FLoad.AssemblyFileName + ".config" : Name);
        std::string Message = "Copying : ";
        Message.append(Name).append(OfProgram ? " to " : " to Output Folder : ").append(OfProgram ? Target : Folder);
        // A dry run says it in its own words.
        if (!TCustomQXAction::IsDryRun())
            Log(Message);
        // A copy that fails shows when the program runs without its settings, as it does in the IDE.
        static_cast<void>(QXFiles().Copy(FLoad.Folder + Name, Target));
    }
}
