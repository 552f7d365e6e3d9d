#include "package/compiler/QXProjectLoader.h"

#include "host/QXFiles.h"
#include "host/QXUtilities.h"
#include "package/compiler/QXDotNetUtils.h"
#include "package/compiler/QXProjectXml.h"
#include "package/compiler/QXReferenceResolver.h"
#include "package/compiler/QXResourceProcessor.h"
#include "package/plugin/QXActionHelpers.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <algorithm>

namespace
{
constexpr std::string_view PictureContainers[] = {"jpg", "jpeg", "bmp", "gif", "png", "icon", "cur", "dib"};

bool IsPicture(const std::string& Container)
{
    const std::string Lower = Texts::Lower(Container);
    return std::find(std::begin(PictureContainers), std::end(PictureContainers), Lower) != std::end(PictureContainers);
}
} // namespace

bool TQXBorlandProjectLoader::Load()
{
    if (!Begin())
        return false;
    Reset();
    TXmlDocument Document;
    if (!Document.LoadFromFile(FLoad.FileName))
        return FailParsing(Document.ParseError());
    return LoadDocument(Document.DocumentElement());
}

bool TQXBorlandProjectLoader::LoadDocument(const TXmlElement& Root)
{
    const auto Options = Root.SelectNode("CSharp.Personality/Options");
    if (!Options)
        return Fail("Unable to find Settings node in project document");
    if (!SelectOptionsSet(*Options))
        return false;
    const auto Elements = Root.SelectNodes("CSharp.Personality/FileList/File");
    if (Elements.empty())
        return Fail("No Files to compile!");
    if (!CheckResourceCompiler())
        return false;

    const std::string Folder = Paths::Normalise(FLoad.Folder + "obj/" + FLoad.ConfigName);
    const bool Made = QXFiles().ForceFolders(Folder);
    FLoad.ObjectFolder = Paths::WithTrailing(QXFiles().Spelling(Folder));
    if (!Made)
        return Fail("Unable to create output directory : " + FLoad.ObjectFolder);
    TQXResourceProcessor Resources(FAction, FLoad);
    TQXReferenceResolver References(FAction, FLoad);
    Resources.ListFormResources(
        Root.SelectNodes("CSharp.Personality/FileList/File[@ContainerId='ResXCompiler' and @Parent]"), "Parent");
    const bool Loaded = std::all_of(Elements.begin(), Elements.end(),
                                    [&](const TXmlElement& File) { return LoadFile(File, Resources, References); });
    ShowFiles();
    return Loaded && References.CopyFound();
}

bool TQXBorlandProjectLoader::SelectOptionsSet(const TXmlElement& Options)
{
    const auto Sets = Options.SelectNodes("OptionsSet");
    if (Sets.empty())
        return Fail("Unable to load Config Nodes in project document");
    const TXmlElement* Set = FindConfiguration(Sets);
    if (!Set)
        return FailConfiguration("OptionSet : ", Sets);
    FMapping.LoadConfigCompilerOptionsFromProjFile(*Set);
    FLoad.RootNameSpace = FAction.RootNameSpace;
    FollowCompiler("v1.1");
    // Always below the project's folder, an absolute path included.
    const std::string Directory = GetOptionValueString("OutputDirectory", *Set);
    if (!CheckTarget(FAction, "OutputDirectory", Directory))
        return false;
    FLoad.OutputFolder = MakeFolder(FLoad.Folder + Directory, FLoad.Folder);
    return CompleteOutputFile("TargetName") && PrepareDocumentation();
}

bool TQXBorlandProjectLoader::LoadFile(const TXmlElement& File, const TQXResourceProcessor& Resources,
                                       TQXReferenceResolver& References)
{
    const std::string Container = File.Attribute("ContainerId");
    const std::string Path = File.Attribute("FileName");
    if (Container == "CSharpCompiler")
        AddSource(Path);
    else if (Container == "ResXCompiler")
        return Resources.ProcessBorlandEmbeddedResource(File);
    else if (Container == "DotNetAssemblyCompiler")
        References.Take(File, WithLibraryExtension(Path));
    else if (IsPicture(Container))
        Resources.Embed(File, ExpandRelativePath(Path, FLoad.Folder), FAction.Project.Resources);
    return true;
}
