#include "apps/import/ProjectFormats.h"

#include "platform/Paths.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>

namespace
{
/// The element of a language below the root of a project of Visual Studio .NET 2002 or 2003.
struct TLanguage
{
    std::string_view Element;
    TProjectKind Kind;
    bool IsCompact;
};
constexpr std::array<TLanguage, 5> Languages = {{{"CSHARP", TProjectKind::CSharp, false},
                                                 {"VisualBasic", TProjectKind::VisualBasic, false},
                                                 {"VISUALJSHARP", TProjectKind::JSharp, false},
                                                 {"ECSHARP", TProjectKind::CSharp, true},
                                                 {"EVisualBasic", TProjectKind::VisualBasic, true}}};

std::string OutputFileName(const std::string& AssemblyName, const TFoundProject& Project)
{
    return (AssemblyName.empty() ? Project.Name : AssemblyName) + (Project.IsProgram ? ".exe" : ".dll");
}

TProjectReference ReadReference(const TXmlElement& Element)
{
    const std::string Name = Element.Attribute("Name");
    if (Element.HasAttribute("Project") && Element.HasAttribute("Name"))
        return {TReferenceKind::Project, Name, PlainGuid(Element.Attribute("Project"))};
    if (Element.HasAttribute("AssemblyName"))
        return {TReferenceKind::Assembly, Element.Attribute("AssemblyName"), "", Element.Attribute("HintPath"),
                Element.HasAttribute("AssemblyFolderKey")};
    return {TReferenceKind::Com, Name};
}

/// One without a name cannot be asked for.
void AddConfiguration(const std::string& Name, const std::string& OutputPath, TFoundProject& Project)
{
    if (!Name.empty())
        Project.Configurations.push_back({Name, OutputPath});
}

void ReadSettings(const TXmlElement& Settings, TFoundProject& Project)
{
    const std::string Type = Settings.Attribute("OutputType");
    Project.IsProgram = Type == "Exe" || Type == "WinExe";
    Project.OutputName = OutputFileName(Settings.Attribute("AssemblyName"), Project);
    Project.HasBuildEvents =
        !Settings.Attribute("PreBuildEvent").empty() || !Settings.Attribute("PostBuildEvent").empty();
    for (const TXmlElement& Config : Settings.SelectNodes("Config"))
        AddConfiguration(Config.Attribute("Name"), Config.Attribute("OutputPath"), Project);
}

void ReadFile(const TXmlElement& File, TFoundProject& Project)
{
    const std::string Action = File.Attribute("BuildAction");
    const char* Path = File.HasAttribute("Link") ? "Link" : "RelPath";
    if (Action == "Compile")
        Project.Sources.push_back(File.Attribute(Path));
    else if (Action == "EmbeddedResource")
        Project.Resources.push_back(File.Attribute(Path));
}

/// An option of a set of C# Builder.
std::string BuilderOption(const TXmlElement& Set, const std::string& Name)
{
    const auto Option = Set.SelectNode("Options/Options[@Name=\"" + Name + "\"]");
    return Option ? Option->Text() : "";
}

/// The configuration that the condition of an MSBuild element asks for; empty if it asks for none.
std::string ConfigurationOf(std::string_view Condition)
{
    const std::size_t Equals = Condition.find("==");
    if (Condition.find("$(Configuration)") > Equals || Equals == std::string_view::npos)
        return {};
    const std::size_t Start = Condition.find('\'', Equals);
    if (Start == std::string_view::npos)
        return {};
    const std::string_view Rest = Condition.substr(Start + 1);
    return std::string(Rest.substr(0, Rest.find_first_of("'|")));
}

/// Reads the properties of MSBuild that name the output, as far as they do not depend on others.
class TMSBuildReader
{
public:
    explicit TMSBuildReader(TFoundProject& Project) : FProject(Project) {}
    void Read(const TXmlElement& Root);

private:
    void ReadProperty(const TXmlElement& Property, const std::string& Configuration);
    void ReadItem(const TXmlElement& Item);
    [[nodiscard]] TProjectConfiguration& Configuration(const std::string& Name);

    TFoundProject& FProject;
    std::string FAssemblyName;
    std::string FOutputPath; ///< of every configuration that has none of its own
};

void TMSBuildReader::Read(const TXmlElement& Root)
{
    FProject.Kind = TProjectKind::MSBuild;
    for (const TXmlElement& Group : Root.SelectNodes("*[local-name()='PropertyGroup']"))
    {
        const std::string Name = ConfigurationOf(Group.Attribute("Condition"));
        if (!Name.empty())
            static_cast<void>(Configuration(Name));
        for (const TXmlElement& Property : Group.SelectNodes("*"))
            ReadProperty(Property, Name);
    }
    for (const TXmlElement& Item : Root.SelectNodes("*[local-name()='ItemGroup']/*"))
        ReadItem(Item);
    for (TProjectConfiguration& Configuration : FProject.Configurations)
        Configuration.OutputPath =
            Texts::Replace(Configuration.OutputPath.empty() ? FOutputPath : Configuration.OutputPath,
                           "$(Configuration)", Configuration.Name);
    if (FAssemblyName.find("$(") != std::string::npos)
        FAssemblyName.clear();
    FProject.OutputName = OutputFileName(FAssemblyName, FProject);
}

TProjectConfiguration& TMSBuildReader::Configuration(const std::string& Name)
{
    for (TProjectConfiguration& Known : FProject.Configurations)
        if (Texts::Same(Known.Name, Name))
            return Known;
    return FProject.Configurations.emplace_back(TProjectConfiguration{Name, ""});
}

void TMSBuildReader::ReadProperty(const TXmlElement& Property, const std::string& ConfigurationName)
{
    const std::string Name = Property.Name();
    if (Name == "ProjectGuid")
        FProject.Guid = PlainGuid(Property.Text());
    else if (Name == "AssemblyName")
        FAssemblyName = Texts::Trim(Property.Text());
    else if (Name == "OutputType")
        FProject.IsProgram = std::string(Texts::Trim(Property.Text())).ends_with("xe");
    else if (Name == "OutputPath" && ConfigurationName.empty())
        FOutputPath = Texts::Trim(Property.Text());
    else if (Name == "OutputPath")
        Configuration(ConfigurationName).OutputPath = Texts::Trim(Property.Text());
}

void TMSBuildReader::ReadItem(const TXmlElement& Item)
{
    const std::string Name = Item.Name();
    const std::string Include = Item.Attribute("Include");
    if (Name == "ProjectReference")
    {
        const auto Guid = Item.SelectNode("*[local-name()='Project']");
        FProject.References.push_back(
            {TReferenceKind::Project, Paths::BareName(Include), Guid ? PlainGuid(Guid->Text()) : "", Include});
    }
    else if (Name == "Reference")
    {
        const auto Hint = Item.SelectNode("*[local-name()='HintPath']");
        FProject.References.push_back({TReferenceKind::Assembly, Include.substr(0, Include.find(',')), "",
                                       Hint ? std::string(Texts::Trim(Hint->Text())) : ""});
    }
    else if (Name == "Compile" && Include.find_first_of("*$;@") == std::string::npos)
        FProject.Sources.push_back(Include);
}
} // namespace

void ReadVisualStudioProject(const TXmlElement& Root, TFoundProject& Project)
{
    for (const TLanguage& Language : Languages)
    {
        const auto Element = Root.SelectNode(std::string(Language.Element));
        if (!Element)
            continue;
        Project.Kind = Language.Kind;
        Project.IsCompact = Language.IsCompact;
        Project.Guid = PlainGuid(Element->Attribute("ProjectGuid"));
        const auto Settings = Element->SelectNode("Build/Settings");
        if (!Settings)
            throw EProjectError("it has no settings");
        ReadSettings(*Settings, Project);
        Project.LacksImports =
            Language.Kind == TProjectKind::VisualBasic && !Element->SelectNode("Build/Imports/Import");
        for (const TXmlElement& Reference : Element->SelectNodes("Build/References/Reference"))
            Project.References.push_back(ReadReference(Reference));
        for (const TXmlElement& File : Element->SelectNodes("Files/Include/File"))
            ReadFile(File, Project);
        return;
    }
    throw EProjectError("it is no project of C#, VB.NET or J#");
}

void ReadBuilderProject(const TXmlElement& Root, TFoundProject& Project)
{
    const auto Options = Root.SelectNode("CSharp.Personality/Options");
    if (!Options)
        throw EProjectError("it holds no C#");
    Project.Kind = TProjectKind::CSharpBuilder;
    if (const auto Guid = Root.SelectNode("PersonalityInfo/Option/Option[@Name='GUID']"))
        Project.Guid = PlainGuid(Guid->Text());
    for (const TXmlElement& Set : Options->SelectNodes("OptionsSet"))
    {
        const std::string Type = BuilderOption(Set, "TargetType");
        Project.IsProgram = Type == "Console" || Type == "Windows";
        Project.OutputName = OutputFileName(BuilderOption(Set, "TargetName"), Project);
        AddConfiguration(Set.Attribute("Name"), BuilderOption(Set, "OutputDirectory"), Project);
    }
    for (const TXmlElement& File : Root.SelectNodes("CSharp.Personality/FileList/File"))
    {
        const std::string Container = File.Attribute("ContainerId");
        const std::string Path = File.Attribute("FileName");
        if (Container == "CSharpCompiler")
            Project.Sources.push_back(Path);
        else if (Container == "ResXCompiler")
            Project.Resources.push_back(Path);
        else if (Container == "DotNetAssemblyCompiler")
            Project.References.push_back({TReferenceKind::Assembly, Paths::BareName(Path), "", Path});
    }
}

void ReadMSBuildProject(const TXmlElement& Root, TFoundProject& Project)
{
    TMSBuildReader(Project).Read(Root);
}
