#include "package/compiler/QXReferenceResolver.h"

#include "host/QXFiles.h"
#include "host/QXServices.h"
#include "host/QXUtilities.h"
#include "package/compiler/QXDotNetUtils.h"
#include "package/compiler/QXProjectXml.h"
#include "package/compiler/QXReferencePlaces.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <algorithm>
#include <stdexcept>

namespace
{
/// The file in its spelling on disk, or empty.
std::string FindFile(const std::string& Path)
{
    return QXFiles().FileExists(Path) ? QXFiles().Find(Path) : "";
}

bool IsKeptWhereItIs(const TXmlElement& Reference)
{
    return !Reference.Attribute("Private").empty() && !GetAttributeValueBoolean("Private", Reference);
}
} // namespace

bool TQXReferenceResolver::Resolve(std::vector<TXmlElement> References)
{
    return std::all_of(References.begin(), References.end(),
                       [this](TXmlElement& Reference) { return ResolveReference(Reference); }) &&
           CopyFound();
}

bool TQXReferenceResolver::ResolveReference(TXmlElement& Reference)
{
    if (!FLoad.PlatformName.empty() && Reference.HasAttribute("Platform") &&
        Reference.Attribute("Platform") != FLoad.PlatformName)
        return true;
    FTried.Clear();
    if (Reference.HasAttribute("Project") && Reference.HasAttribute("Name") && !ResolveProjectReference(Reference))
        return false;
    if (Reference.HasAttribute("AssemblyName"))
    {
        const std::string Path = AssemblyPath(Reference);
        FAction.SendMessage("Adding Reference : " + Path);
        Take(Reference, Path);
    }
    else
        return ResolveComReference(Reference);
    return true;
}

bool TQXReferenceResolver::ResolveProjectReference(TXmlElement& Reference)
{
    const std::string ProjectName = Reference.Attribute("Name");
    FAction.SendMessage("Warning! - Attempting to resolve project reference : " + ProjectName);
    std::string Name = WithLibraryExtension(ProjectName);
    Name = OutputOfProject(Name);
    if (!QXFiles().FileExists(Name))
    {
        const bool IsLeftToCompiler = !FAction.LibLocations.empty();
        if (!IsLeftToCompiler)
            FAction.SendMessage("Unable to resolve project reference: " + ProjectName);
        TellWhereLookedFor(WithLibraryExtension(ProjectName), Name);
        if (!IsLeftToCompiler)
            return false;
        FTried.Add(FLoad.OutputFolder + WithLibraryExtension(ProjectName));
        FTried.Add(ExpandRelativePath(Name, Files::CurrentFolder()));
        Name = Paths::FileName(Name);
    }
    // What a script gives is relative to the current folder, a hint to the project's.
    if (!Paths::Folder(Name).empty())
        Reference.SetAttribute("HintPath", ExpandRelativePath(Name, Files::CurrentFolder()));
    Reference.SetAttribute("AssemblyName", Paths::FileName(Name));
    return true;
}

/// What lies in the output folder may be a copy that was made before, so where the project follows the IDE its origin
/// is asked for first.
std::string TQXReferenceResolver::OutputOfProject(const std::string& Name)
{
    std::string Output = FindFile(FLoad.OutputFolder + Name);
    if (!Output.empty() && !FLoad.FollowsIDE)
        return Output;
    std::string Answer = FAction.ResolveProjReferenceEvent(Name);
    return Output.empty() || (Answer != Name && QXFiles().FileExists(Answer)) ? Answer : Output;
}

void TQXReferenceResolver::TellWhereLookedFor(const std::string& Name, const std::string& Answer) const
{
    if (IsFoundByCompiler(Paths::FileName(Answer)))
        return;
    const std::string Where =
        Answer == Name
            ? "There is no " + FLoad.OutputFolder + Name + ", and OnResolveProjectReference does not say where it is"
            : "OnResolveProjectReference answered " + ExpandRelativePath(Answer, Files::CurrentFolder()) +
                  ", where no file is";
    FAction.SendMessage(Where + " : the action that makes it has to run before this one");
}

bool TQXReferenceResolver::IsFoundByCompiler(const std::string& Name) const
{
    return !FindIn(LibraryFolders(FAction, FLoad), Name).empty();
}

bool TQXReferenceResolver::ResolveComReference(const TXmlElement& Reference)
{
    const std::string Tool = Texts::Lower(Reference.Attribute("WrapperTool"));
    if (Tool == "tlbimp")
        return AddWrapper(Reference);
    if (Tool == "aximp")
        return AddControlWrapper(Reference);
    if (Tool == "primary")
        AddPrimaryInterop(Reference);
    return true;
}

void TQXReferenceResolver::AddPrimaryInterop(const TXmlElement& Reference)
{
    const std::string Path = GetPrimaryInterop(Reference);
    if (!Path.empty())
        AddReference(Path);
    if (FLoad.FollowsIDE && !QXFiles().FileExists(Path))
        FAction.SendMessage("Warning : The reference " + Reference.Attribute("Name") + " was found nowhere : " +
                            (Path.empty() ? "its type library is not registered as one with an assembly" : Path));
}

std::string TQXReferenceResolver::GetPrimaryInterop(const TXmlElement& Reference)
{
    const std::string Cache = GetGACFolder();
    if (Cache.empty())
        throw std::runtime_error("Could not detect the location of the GAC!");
    const int Major = GetAttributeValueNumber("VersionMajor", Reference, 16);
    const int Minor = GetAttributeValueNumber("VersionMinor", Reference, 16);
    const auto Library =
        QXRegistry().OpenKey(TRegistryRoot::ClassesRoot, "TypeLib\\" + Reference.Attribute("Guid") + '\\' +
                                                             std::to_string(Major) + '.' + std::to_string(Minor));
    TStringList Name;
    if (Library)
        Name.SetCommaText(Library->ReadString("PrimaryInteropAssemblyName").value_or(""));
    if (Name.IsEmpty())
        return {};
    return ExpandRelativePath(Cache + Name[0] + '\\' + Name.Value("Version") + "__" + Name.Value("PublicKeyToken") +
                                  '\\' + Name[0] + ".dll",
                              Files::CurrentFolder());
}

bool TQXReferenceResolver::AddWrapper(const TXmlElement& Reference)
{
    const std::string Name = "Interop." + WithLibraryExtension(Reference.Attribute("Name"));
    if (!IsPrivate(Reference, Name))
        return FWrappers.GenerateInterop(Reference);
    AddReference(QXFiles().Find(FLoad.OutputFolder + Name));
    return true;
}

bool TQXReferenceResolver::AddControlWrapper(const TXmlElement& Reference)
{
    const std::string Name = TQXWrapperGenerator::LibraryName(Reference.Attribute("Name")) + ".dll";
    const bool AreThere = IsPrivate(Reference, "Ax" + Name) && IsPrivate(Reference, Name);
    if (!AreThere && !FWrappers.GenerateAxInterop(Reference))
        return false;
    AddReference(QXFiles().Spelling(FLoad.OutputFolder + "Ax" + Name));
    AddReference(QXFiles().Spelling(FLoad.OutputFolder + Name));
    return true;
}

bool TQXReferenceResolver::IsPrivate(const TXmlElement& Reference, const std::string& Name) const
{
    return Reference.Attribute("Private") == "True" && QXFiles().FileExists(FLoad.OutputFolder + Name);
}

std::string TQXReferenceResolver::AssemblyPath(const TXmlElement& Reference) const
{
    std::string Name = WithLibraryExtension(Reference.Attribute("AssemblyName"));
    if (std::string Original = OriginalPath(Reference, Name); !Original.empty())
        return Original;
    if (IsPrivate(Reference, Name))
        return QXFiles().Find(FLoad.OutputFolder + Name);
    if (Reference.HasAttribute("AssemblyFolderKey") || Reference.HasAttribute("HintPath"))
        return PathByKeyOrHint(Reference, Name);
    if (!FLoad.CompactSystemFolder.empty() && Name.starts_with("System."))
        return QXFiles().Spelling(FLoad.CompactSystemFolder + Name);
    return Name;
}

std::string TQXReferenceResolver::OriginalPath(const TXmlElement& Reference, const std::string& Name) const
{
    if (!FLoad.FollowsIDE)
        return {};
    std::string Path = Reference.HasAttribute("AssemblyFolderKey") ? FindFile(PathByKey(Reference, Name)) : "";
    if (Path.empty() && Reference.HasAttribute("HintPath"))
        Path = FindFile(ExpandRelativePath(Reference.Attribute("HintPath"), FLoad.Folder));
    return Path;
}

std::string TQXReferenceResolver::PathByKey(const TXmlElement& Reference, const std::string& Name)
{
    const std::string Folder = FindAssemblyKeyFolder(Reference.Attribute("AssemblyFolderKey"));
    return Paths::WithoutTrailing(Folder) + Paths::Delimiter() + Name;
}

std::string TQXReferenceResolver::PathByKeyOrHint(const TXmlElement& Reference, const std::string& Name) const
{
    if (Reference.HasAttribute("AssemblyFolderKey"))
    {
        const std::string Path = PathByKey(Reference, Name);
        if (!Reference.HasAttribute("HintPath") || QXFiles().FileExists(Path))
            return QXFiles().Spelling(Path);
    }
    std::string Path = ExpandRelativePath(Reference.Attribute("HintPath"), FLoad.Folder);
    if (QXFiles().FileExists(Path))
        return Path;
    if (!FLoad.FollowsIDE && !IsFoundByCompiler(Paths::FileName(Path)))
        FAction.SendMessage("Warning : The hint path of a reference was not found : " + Path);
    return Paths::FileName(Path);
}

void TQXReferenceResolver::AddReference(const std::string& Path)
{
    FAction.SendMessage("Adding Reference : " + Path);
    FAction.Project.References.push_back(Path);
}

void TQXReferenceResolver::Take(const TXmlElement& Entry, const std::string& Path)
{
    FAction.Project.References.push_back(Path);
    if (!FLoad.FollowsIDE)
        return;
    const std::string Found = Locate(Path);
    if (Found.empty())
        TellPlaces(Entry, Path);
    else if (!IsKeptWhereItIs(Entry))
        FCopies.Add(Found);
}

std::string TQXReferenceResolver::Locate(const std::string& Path) const
{
    if (!Paths::Folder(Path).empty())
        return FindFile(Paths::Expand(Path, FLoad.Folder));
    const std::string InProject = FindFile(FLoad.Folder + Path);
    return InProject.empty() ? FindIn(LibraryFolders(FAction, FLoad), Path) : InProject;
}

void TQXReferenceResolver::TellPlaces(const TXmlElement& Reference, const std::string& Path) const
{
    const std::string Name = Paths::FileName(Path);
    TStringList Places = FTried;
    if (Reference.Attribute("Private") == "True")
        Places.Add(FLoad.OutputFolder + Name);
    if (const std::string Key = Reference.Attribute("AssemblyFolderKey"); !Key.empty())
        Places.Add(FindAssemblyKeyFolder(Key).empty() ? Key + " (not registered)" : PathByKey(Reference, Name));
    if (Reference.HasAttribute("HintPath"))
        Places.Add(ExpandRelativePath(Reference.Attribute("HintPath"), FLoad.Folder));
    if (!Paths::Folder(Path).empty())
        Places.Add(Paths::Expand(Path, FLoad.Folder));
    else
    {
        Places.Add(FLoad.Folder + Name);
        for (const std::string& Folder : LibraryFolders(FAction, FLoad))
            Places.Add(Paths::Expand(Name, Folder));
    }
    std::string Text;
    for (auto Place = Places.begin(); Place != Places.end(); ++Place)
        if (std::find(Places.begin(), Place, *Place) == Place)
            Text.append(Text.empty() ? "" : ", ").append(*Place);
    FAction.SendMessage("Warning : The reference " + Name + " was found nowhere : " + Text);
}
