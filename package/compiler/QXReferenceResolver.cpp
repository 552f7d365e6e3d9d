#include "package/compiler/QXReferenceResolver.h"

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
    return Files::FileExists(Path) ? Files::Find(Path) : "";
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

    if (!Files::FileExists(Name))
    {
        if (FAction.LibLocations.empty())
        {
            FAction.SendMessage("Unable to resolve project reference: " + ProjectName);
            return false;
        }
        Name = Paths::FileName(Name);
    }
    // What a script gives is relative to the current folder, a hint to the project's.
    if (!Paths::Folder(Name).empty())
        Reference.SetAttribute("HintPath", ExpandRelativePath(Name, Files::CurrentFolder()));
    Reference.SetAttribute("AssemblyName", Paths::FileName(Name));
    return true;
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
    AddReference(Files::Find(FLoad.OutputFolder + Name));
    return true;
}

bool TQXReferenceResolver::AddControlWrapper(const TXmlElement& Reference)
{
    const std::string Name = TQXWrapperGenerator::LibraryName(Reference.Attribute("Name")) + ".dll";
    const bool AreThere = IsPrivate(Reference, "Ax" + Name) && IsPrivate(Reference, Name);
    if (!AreThere && !FWrappers.GenerateAxInterop(Reference))
        return false;
    AddReference(Files::Spelling(FLoad.OutputFolder + "Ax" + Name));
    AddReference(Files::Spelling(FLoad.OutputFolder + Name));
    return true;
}

bool TQXReferenceResolver::IsPrivate(const TXmlElement& Reference, const std::string& Name) const
{
    return Reference.Attribute("Private") == "True" && Files::FileExists(FLoad.OutputFolder + Name);
}

std::string TQXReferenceResolver::AssemblyPath(const TXmlElement& Reference) const
{
    std::string Name = WithLibraryExtension(Reference.Attribute("AssemblyName"));
    if (IsPrivate(Reference, Name))
        return Files::Find(FLoad.OutputFolder + Name);
    if (Reference.HasAttribute("AssemblyFolderKey") || Reference.HasAttribute("HintPath"))
        return PathByKeyOrHint(Reference, Name);
    if (!FLoad.CompactSystemFolder.empty() && Name.starts_with("System."))
        return Files::Spelling(FLoad.CompactSystemFolder + Name);
    return Name;
}

std::string TQXReferenceResolver::PathByKeyOrHint(const TXmlElement& Reference, const std::string& Name) const
{
    if (Reference.HasAttribute("AssemblyFolderKey"))
    {
        const std::string Folder = FindAssemblyKeyFolder(Reference.Attribute("AssemblyFolderKey"));
        const std::string Path = Paths::WithoutTrailing(Folder) + Paths::Delimiter() + Name;
        if (!Reference.HasAttribute("HintPath") || Files::FileExists(Path))
            return Files::Spelling(Path);
    }
    const std::string Path = ExpandRelativePath(Reference.Attribute("HintPath"), FLoad.Folder);
    return Files::FileExists(Path) ? Path : Paths::FileName(Path);
}

void TQXReferenceResolver::AddReference(const std::string& Path)
{
    FAction.SendMessage("Adding Reference : " + Path);
    FAction.Project.References.push_back(Path);
}
