#include "package/compiler/QXReferenceResolver.h"

#include "host/QXUtilities.h"
#include "package/compiler/QXDotNetUtils.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <algorithm>

namespace
{
/// The file in its spelling on disk, or empty.
std::string FindFile(const std::string& Path)
{
    return Files::FileExists(Path) ? Files::Find(Path) : "";
}

bool IsComWrapper(const std::string& WrapperTool)
{
    const std::string Tool = Text::Lower(WrapperTool);
    return Tool == "primary" || Tool == "tlbimp" || Tool == "aximp";
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
    else if (IsComWrapper(Reference.Attribute("WrapperTool")))
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

bool TQXReferenceResolver::ResolveComReference(const TXmlElement& Reference) const
{
    FAction.SendMessage("COM reference : " + Reference.Attribute("Name") +
                        " - this version does not generate COM wrappers!");
    return false;
}

std::string TQXReferenceResolver::AssemblyPath(const TXmlElement& Reference) const
{
    std::string Name = WithLibraryExtension(Reference.Attribute("AssemblyName"));
    if (Reference.Attribute("Private") == "True")
        if (std::string Output = FindFile(FLoad.OutputFolder + Name); !Output.empty())
            return Output;
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
    AppendItem(FAction.References, ',', Path);
}
