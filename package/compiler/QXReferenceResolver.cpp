#include "package/compiler/QXReferenceResolver.h"

#include "host/QXFiles.h"
#include "host/QXServices.h"
#include "host/QXUtilities.h"
#include "package/compiler/QXDotNetUtils.h"
#include "package/compiler/QXProjectXml.h"
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
} // namespace

bool TQXReferenceResolver::Resolve(std::vector<TXmlElement> References)
{
    return std::all_of(References.begin(), References.end(),
                       [this](TXmlElement& Reference) { return ResolveReference(Reference); });
}

bool TQXReferenceResolver::ResolveReference(TXmlElement& Reference)
{
    if (!FLoad.PlatformName.empty() && Reference.HasAttribute("Platform") &&
        Reference.Attribute("Platform") != FLoad.PlatformName)
        return true;
    if (Reference.HasAttribute("Project") && Reference.HasAttribute("Name") && !ResolveProjectReference(Reference))
        return false;
    if (Reference.HasAttribute("AssemblyName"))
        AddReference(AssemblyPath(Reference));
    else
        return ResolveComReference(Reference);
    return true;
}

bool TQXReferenceResolver::ResolveProjectReference(TXmlElement& Reference)
{
    const std::string ProjectName = Reference.Attribute("Name");
    FAction.SendMessage("Warning! - Attempting to resolve project reference : " + ProjectName);
    std::string Name = WithLibraryExtension(ProjectName);
    if (std::string Output = FindFile(FLoad.OutputFolder + Name); !Output.empty())
        Name = std::move(Output);
    else
        Name = FAction.ResolveProjReferenceEvent(Name);

    if (!QXFiles().FileExists(Name))
    {
        const bool IsLeftToCompiler = !FAction.LibLocations.empty();
        if (!IsLeftToCompiler)
            FAction.SendMessage("Unable to resolve project reference: " + ProjectName);
        TellWhereLookedFor(WithLibraryExtension(ProjectName), Name);
        if (!IsLeftToCompiler)
            return false;
        Name = Paths::FileName(Name);
    }
    // What a script gives is relative to the current folder, a hint to the project's.
    if (!Paths::Folder(Name).empty())
        Reference.SetAttribute("HintPath", ExpandRelativePath(Name, Files::CurrentFolder()));
    Reference.SetAttribute("AssemblyName", Paths::FileName(Name));
    return true;
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
    TStringList Folders;
    Folders.SetText(Texts::Replace(FAction.ExpandExpression(FAction.LibLocations, false), ",", "\n"));
    Folders.Add(FAction.GetFrameWorkPath());
    return std::any_of(Folders.begin(), Folders.end(), [&](const std::string& Folder) {
        return !Folder.empty() && QXFiles().FileExists(Paths::Join(Paths::Expand(Folder, FLoad.Folder), Name));
    });
}

bool TQXReferenceResolver::ResolveComReference(const TXmlElement& Reference)
{
    const std::string Tool = Texts::Lower(Reference.Attribute("WrapperTool"));
    if (Tool == "tlbimp")
        return AddWrapper(Reference);
    if (Tool == "aximp")
        return AddControlWrapper(Reference);
    if (Tool == "primary")
        if (const std::string Path = GetPrimaryInterop(Reference); !Path.empty())
            AddReference(Path);
    return true;
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
    if (IsPrivate(Reference, Name))
        return QXFiles().Find(FLoad.OutputFolder + Name);
    if (Reference.HasAttribute("AssemblyFolderKey") || Reference.HasAttribute("HintPath"))
        return PathByKeyOrHint(Reference, Name);
    if (!FLoad.CompactSystemFolder.empty() && Name.starts_with("System."))
        return QXFiles().Spelling(FLoad.CompactSystemFolder + Name);
    return Name;
}

std::string TQXReferenceResolver::PathByKeyOrHint(const TXmlElement& Reference, const std::string& Name) const
{
    if (Reference.HasAttribute("AssemblyFolderKey"))
    {
        const std::string Folder = FindAssemblyKeyFolder(Reference.Attribute("AssemblyFolderKey"));
        std::string Path = Paths::WithoutTrailing(Folder) + Paths::Delimiter() + Name;
        if (!Reference.HasAttribute("HintPath") || QXFiles().FileExists(Path))
            return QXFiles().Spelling(Path);
    }
    std::string Path = ExpandRelativePath(Reference.Attribute("HintPath"), FLoad.Folder);
    if (QXFiles().FileExists(Path))
        return Path;
    if (!IsFoundByCompiler(Paths::FileName(Path)))
        FAction.SendMessage("Warning : The hint path of a reference was not found : " + Path);
    return Paths::FileName(Path);
}

void TQXReferenceResolver::AddReference(const std::string& Path)
{
    FAction.SendMessage("Adding Reference : " + Path);
    FAction.Project.References.push_back(Path);
}
