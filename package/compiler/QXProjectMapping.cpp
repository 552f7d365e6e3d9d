#include "package/compiler/QXProjectMapping.h"

#include "host/QXFiles.h"
#include "host/QXUtilities.h"
#include "package/compiler/QXProjectLoader.h"
#include "package/compiler/QXProjectXml.h"
#include "package/plugin/QXActionHelpers.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <exception>

bool TQXProjectMapping::LoadProjectFile(const std::string& FileName)
{
    try
    {
        if (Texts::Same(Paths::Extension(FileName), ".bdsproj"))
            return TQXBorlandProjectLoader(FAction, *this, FileName).Load();
        return TQXVisualStudioProjectLoader(FAction, *this, FileName).Load();
    }
    catch (const std::exception& Error)
    {
        FAction.SendMessage(std::string("An error occured : ") + Error.what());
        return false;
    }
}

bool TQXProjectMapping::GetProjectCommandLine(ICommandLineBuilder& Builder,
                                              std::initializer_list<std::string_view> CompactSwitches)
{
    std::string FileName;
    if (!FAction.TryExpandExpression("ProjectFile", FAction.ProjectFile, FileName, true) ||
        !CheckTarget(FAction, "ProjectFile", FileName))
        return false;
    FileName = ExpandRelativePath(FileName, Files::CurrentFolder());
    const bool IsCompact = FAction.IsCompactFramework(); // before a script may name another project
    const bool Loaded = LoadProjectFile(FileName);
    FAction.ProjectDir = Paths::Folder(FileName);
    if (IsCompact)
        for (const std::string_view Switch : CompactSwitches)
            Builder.AddArgument(Switch);
    return Loaded && FAction.TQXManagedCompilerAction::GetCommandLine(Builder);
}

bool TQXProjectMapping::ValidateProject(IQXActionValidationError& Errors) const
{
    return Require(Errors, {{FAction.ProjectFile, "Project File", "Project file has not been set"},
                            {FAction.ConfigName, "Configuration", "The configuration to use has not been set"}});
}

bool TQXProjectMapping::LoadConfigListFromProject(const std::string& FileName, TStringList& List) const
{
    List.Clear();
    if (!QXFiles().FileExists(FileName))
        return false;
    const bool IsBorland = Texts::Same(Paths::Extension(FileName), ".bdsproj");
    TXmlDocument Document;
    if (!(IsBorland ? Document.LoadFromFile(FileName) : Document.LoadFromProject(Files::Read(FileName))))
        return false;
    const std::string Path = IsBorland ? "CSharp.Personality/Options/OptionsSet"
                                       : GetCompilerTypeInProjectFile(FileName) + "/Build/Settings/Config";
    for (const TXmlElement& Configuration : Document.DocumentElement().SelectNodes(Path))
        List.Add(Configuration.Attribute("Name"));
    return true;
}

std::string TQXProjectMapping::UnMangleConfigName(const std::string& Name) const
{
    const auto Bar = Name.find('|');
    if (Bar == std::string::npos)
        return Name;
    const std::string Left = Name.substr(0, Bar);
    const std::string Right = Name.substr(Bar + 1);
    const std::string_view Plain = FAction.IsCompactFramework() ? "Pocket PC" : ".NET";
    return Right == Plain ? Left : Right + Paths::Delimiter() + Left;
}

TDotNetVSVersion TQXProjectMapping::DetectVSVersion(const std::string& FileName, const TXmlElement& Root) const
{
    const std::string Name = GetCompilerTypeInProjectFile(FileName);
    const auto Language = Name.empty() ? std::nullopt : Root.SelectNode(Name);
    if (!Language || !Language->HasAttribute("SchemaVersion"))
        return TDotNetVSVersion::vsInvalid;
    return Language->Attribute("SchemaVersion") == "1.0" ? TDotNetVSVersion::vs2002 : TDotNetVSVersion::vs2003;
}

void TQXProjectMapping::LoadSettingsFromProjFile(const TXmlElement& Settings)
{
    static constexpr TNamedValue<TDotNetTarget> Targets[] = {{"Library", TDotNetTarget::Lib},
                                                             {"Exe", TDotNetTarget::Exe},
                                                             {"Module", TDotNetTarget::Module},
                                                             {"WinExe", TDotNetTarget::WindowsExe}};
    FAction.OutputFile = GetAttributeValueString("AssemblyName", Settings);
    FAction.Target = FindNamedValue(Targets, GetAttributeValueString("OutputType", Settings), FAction.Target);
}

void TQXProjectMapping::LoadIcon(const TXmlElement& Settings)
{
    FAction.Icon = GetAttributeValueString("ApplicationIcon", Settings);
    FAction.Project.Icons = {FAction.Icon};
}

void TQXProjectMapping::LoadConfigCompilerOptionsFromProjFile(const TXmlElement& Config)
{
    FAction.BaseAddress = GetAttributeValueString("BaseAddress", Config);
    FAction.Defines = GetAttributeValueString("DefineConstants", Config);
    FAction.Debug = GetAttributeValueBoolean("DebugSymbols", Config) ? TDotNetDebugOptions::DebugFull
                                                                     : TDotNetDebugOptions::DebugOff;
    FAction.SupressWarnings = GetAttributeValueString("NoWarn", Config);
    FAction.Optimize = GetAttributeValueBoolean("Optimize", Config);
    FAction.WarnAsError = GetAttributeValueBoolean("TreatWarningsAsErrors", Config);
}

bool TQXProjectMapping::LoadCompilerOtherSettings(const std::string& /*FileName*/, const TXmlElement& /*Root*/)
{
    return true;
}
