#include "package/compiler/QXProjectLoader.h"

#include "host/QXDotNetInfo.h"
#include "host/QXFiles.h"
#include "host/QXUtilities.h"
#include "package/plugin/QXActionHelpers.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <algorithm>

TQXProjectLoader::TQXProjectLoader(TQXManagedCompilerAction& Action, TQXProjectMapping& Mapping, std::string FileName)
    : FAction(Action), FMapping(Mapping), FLoad{Mapping}
{
    FLoad.Folder = Paths::Folder(FileName);
    FLoad.FileName = std::move(FileName);
}

bool TQXProjectLoader::Begin()
{
    if (!FAction.TryExpandExpression("ConfigName", FAction.ConfigName, FLoad.ConfigName, true))
        return false;
    FLoad.IsCompact = FAction.IsCompactFramework();
    FLoad.FollowsIDE = TCustomQXAction::FollowsIDE();
    FLoad.CompactCompiler = FAction.CFResGen;
    FLoad.ConfigFolder = FMapping.UnMangleConfigName(FLoad.ConfigName);
    if (const std::string Folder = FAction.GetSDKPath(); !Folder.empty())
        FLoad.SDKFolder = Paths::WithTrailing(Folder);
    return true;
}

void TQXProjectLoader::Reset()
{
    FAction.ResetOptions();
    FAction.Project.IsLoaded = true;
}

bool TQXProjectLoader::Fail(const std::string& Message) const
{
    Log(Message);
    return false;
}

bool TQXProjectLoader::FailParsing(const TXmlParseError& Error) const
{
    return Fail("Error Loading Project File : " + FLoad.FileName + "\r\nReason : " + Error.Reason +
                "\r\nLine   : " + std::to_string(Error.Line));
}

const TXmlElement* TQXProjectLoader::FindConfiguration(const std::vector<TXmlElement>& Configurations) const
{
    const std::string Wanted = Texts::FoldCase(FLoad.ConfigName);
    const auto Found = std::find_if(Configurations.begin(), Configurations.end(), [&](const TXmlElement& Element) {
        return Texts::FoldCase(Element.Attribute("Name")) == Wanted;
    });
    return Found == Configurations.end() ? nullptr : &*Found;
}

bool TQXProjectLoader::FailConfiguration(const std::string& Kind, const std::vector<TXmlElement>& Configurations) const
{
    Log(Kind + FLoad.ConfigName + " - not found in project file");
    std::string Names;
    for (const TXmlElement& Element : Configurations)
        if (const std::string Name = Element.Attribute("Name"); !Name.empty())
            Names.append(Names.empty() ? "" : ", ").append(Name);
    return !Names.empty() && Fail("The project file has : " + Names);
}

std::string TQXProjectLoader::MakeFolder(std::string_view Path, std::string_view Base)
{
    static_cast<void>(QXFiles().ForceFolders(ExpandRelativePath(Path, Base)));
    return Paths::WithTrailing(ExpandRelativePath(Path, Base));
}

bool TQXProjectLoader::CompleteOutputFile(std::string_view Property)
{
    if (!CheckTarget(FAction, Property, FAction.OutputFile))
        return false;
    std::string Name = FAction.OutputFile.empty() ? Paths::BareName(FLoad.FileName) : FAction.OutputFile;
    const bool IsLibrary = FAction.Target == TDotNetTarget::Lib || FAction.Target == TDotNetTarget::Module;
    const std::string Path = Paths::Normalise(FLoad.OutputFolder + Name + (IsLibrary ? ".dll" : ".exe"));
    FAction.OutputFile = MakeFolder(Paths::Folder(Path), FLoad.Folder) + Paths::FileName(Path);
    return true;
}

void TQXProjectLoader::FollowCompiler(std::string_view ProjectVersion)
{
    if (!FLoad.FollowsIDE || !FAction.WarnAsError || !FAction.IsNewerThan(ProjectVersion))
        return;
    FAction.WarnAsError = false;
    Log("Warnings are no errors here : the project was made for the compiler of .NET " + std::string(ProjectVersion) +
        ", that of " + FAction.GetDefaultSDKVersion() + " is newer");
}

bool TQXProjectLoader::PrepareDocumentation()
{
    std::string& File = FAction.Project.Documentation;
    if (File.empty())
        return true;
    if (!CheckTarget(FAction, "DocumentationFile", File))
        return false;
    const std::string Folder = MakeFolder(Paths::Folder(ExpandRelativePath(File, FLoad.Folder)), FLoad.Folder);
    const std::string Path = Folder + Paths::FileName(File);
    File = Paths::IsAbsolute(File) ? Path : Paths::RelativeTo(Path, FLoad.Folder);
    return true;
}

bool TQXProjectLoader::CheckResourceCompiler() const
{
    if (!FLoad.SDKFolder.empty() && QXFiles().FileExists(FLoad.SDKFolder + "resgen.exe"))
        return true;
    return Fail(".NET SDK Version " + FAction.GetDefaultSDKVersion() + " - not detected on this machine!");
}

void TQXProjectLoader::AddSource(const std::string& Path)
{
    FAction.Project.Sources.push_back(ExpandRelativePath(Path, FLoad.Folder));
}

void TQXProjectLoader::ShowFiles()
{
    const TQXProjectFiles& Project = FAction.Project;
    FAction.Files = TStringList(Project.Sources).DelimitedText(';');
    FAction.References = TStringList(Project.References).DelimitedText(',');
    TStringList Resources(Project.Resources);
    for (const TQXNamedResource& Resource : Project.NamedResources)
        Resources.Add(Resource.Path);
    FAction.Resources = Resources.DelimitedText(',');
    FAction.Win32Resources = TStringList(Project.Win32Resources).DelimitedText(',');
}
