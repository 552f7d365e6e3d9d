#include "package/compiler/QXDotNetManagedCompilerAction.h"

#include "host/QXServices.h"
#include "host/QXUtilities.h"
#include "package/compiler/QXProjectLoader.h"
#include "package/compiler/QXProjectXml.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <exception>

namespace
{
constexpr std::string_view ResolveScript = "OnResolveProjectReference";
}

TQXManagedCompilerAction::TQXManagedCompilerAction()
{
    MinimumSDKVersion = "1.0";
}

void TQXManagedCompilerAction::PublishListSettings(const TQXListCompilerSettings& Own)
{
    Publish("NoLogo", NoLogo, "Suppress the compiler's banner");
    Publish("OutputInUTF8", OutputInUTF8, "Ask the compiler for output in UTF-8");
    Publish("Optimize", Optimize, "Optimise the code");
    Publish("OutputFile", OutputFile, "File to make").File();
    Publish("Target", Target, "Kind of file to make");
    Publish("Modules", Modules, "Modules to add to the assembly").List(',');
    Publish("LibLocations", LibLocations, "Folders in which references are looked for").List(',');
    Publish("References", References, "Assemblies to refer to").List(',');
    Publish("Debug", Debug, "Debug information to make");
    Publish("SupressWarnings", SupressWarnings, "Numbers of warnings that are not shown").Expression();
    Publish("WarnAsError", WarnAsError, "Treat warnings as errors");
    Publish("Defines", Defines, "Symbols to define, as the compiler takes them").Expression();
    Publish("LinkResources", LinkResources, "Resources to link to the assembly, each a file or file=identifier")
        .List(',');
    Publish("Resources", Resources, "Resources to embed into the assembly, each a file or file=identifier").List(',');
    if (Own.Icon)
        Publish("Icon", Icon, "Icon files of the program").List(';');
    Publish("Win32Resources", Win32Resources, "Win32 resource files").List(';');
    Publish("BaseAddress", BaseAddress, "Address at which a library is loaded").Expression();
    if (Own.CodePage)
        Publish("CodePage", CodePage, "Number of the code page of the sources").Expression();
    Publish("MainClass", MainClass, "Class whose Main starts the program").Expression();
    Publish("RecurseDir", RecurseDir,
            "Folder whose subfolders are searched for sources, with a delimiter at its end; empty: all")
        .Folder();
    Publish("RecurseFiles", RecurseFiles, "Mask of the sources that are searched for in subfolders").File();
    Publish("Files", Files, "Sources to compile").List(';');
    Publish("ProjectDir", ProjectDir, "Folder in which the compiler runs and its response file is written")
        .Folder()
        .Required("src");
    if (Own.RootNameSpace)
        Publish("RootNameSpace", RootNameSpace, "Namespace that encloses all others; prefix of resource names")
            .Expression();
    if (Own.SDKPath)
        Publish("SDKPath", SDKPath, "Folder of the compact framework").Folder();
    Publish("KeepResponseFile", KeepResponseFile, "Leave the response file on disk after the run");
}

void TQXManagedCompilerAction::ResetOptions()
{
    static_cast<TQXCompilerOptions&>(*this) = {};
}

bool TQXManagedCompilerAction::ExpandProjectDir(std::string& Folder) const
{
    if (!TryExpandExpression("Project Directory", ProjectDir, Folder, true))
        return false;
    // The tool runs there and would look for a relative response file below it.
    Folder = Paths::WithTrailing(ExpandRelativePath(Folder, Files::CurrentFolder()));
    return true;
}

bool TQXManagedCompilerAction::WriteLines(const std::string& FileName, const TStringList& Lines,
                                          std::string_view Message) const
{
    bool Written = Files::Delete(FileName);
    try
    {
        if (Written)
            Files::Write(FileName, Lines.Text());
    }
    catch (const EFileError&)
    {
        Written = false;
    }
    if (!Written)
        SendMessage(std::string(Message) + FileName);
    return Written;
}

bool TQXManagedCompilerAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    std::string Folder;
    TStringList Lines;
    if (!ExpandProjectDir(Folder) || !GenerateResponseFile(Folder, Lines))
        return false;

    ResponseFileName = Folder + "qxresp.rsp";
    if (!WriteLines(ResponseFileName, Lines, "Could not create the response file: "))
        return false;
    Builder.AddArgument("@\"" + ResponseFileName + '"');
    SendMessage("Command Line : " + Builder.GetCommandLineText());
    return true;
}

std::string TQXManagedCompilerAction::GetStartingDir(const std::string& /*Exe*/)
{
    std::string Folder;
    if (ExpandProjectDir(Folder))
        return Folder;
    SendMessage("ERROR! Unable to expand project directory");
    return {};
}

void TQXManagedCompilerAction::OnSuccess(int ExitCode)
{
    TQXDotNetAction::OnSuccess(ExitCode);
    SendMessage(".");
    SendMessage("Project Compiled OK.");
    DeleteResponseFile();
}

void TQXManagedCompilerAction::OnFailure(int ExitCode)
{
    TQXDotNetAction::OnFailure(ExitCode);
    DeleteResponseFile();
}

void TQXManagedCompilerAction::DeleteResponseFile() const
{
    // One that cannot be deleted does no harm: the next run replaces it.
    if (!KeepResponseFile)
        static_cast<void>(Files::Delete(ResponseFileName));
}

void TQXManagedCompilerAction::AddScripts()
{
    TQXManagedCompilerAction::InitialiseScriptParams(AddScript(std::string(ResolveScript)));
}

void TQXManagedCompilerAction::InitialiseScriptParams(TQXScript& Script)
{
    TQXDotNetAction::InitialiseScriptParams(Script);
    if (Script.Name() != ResolveScript)
        return;
    Script.AddParam("Action");
    Script.AddParam("AssemblyName", TQXParamType::String);
    Script.AddParam("ResolvedAssemblyFilePath", TQXParamType::String).SetIsOutput(true);
}

std::string TQXManagedCompilerAction::ResolveProjReferenceEvent(const std::string& FileName)
{
    TQXScript* Script = FindScriptToRun(ResolveScript);
    if (!Script)
        return FileName;

    Script->SetValue("Action", QXScriptingServices().ObjectToVariant(*this));
    Script->SetValue("AssemblyName", FileName);
    Script->SetValue("ResolvedAssemblyFilePath", FileName);
    // A failure has been reported; the name then is what the script left.
    static_cast<void>(ExecuteScript(ResolveScript));
    const std::string* Result = std::get_if<std::string>(&Script->FindParam("ResolvedAssemblyFilePath")->Value());
    return Result ? *Result : FileName;
}

bool TQXManagedCompilerAction::LoadProjectFile(const std::string& FileName)
{
    try
    {
        if (Text::Same(Paths::Extension(FileName), ".bdsproj"))
            return TQXBorlandProjectLoader(*this, FileName).Load();
        return TQXVisualStudioProjectLoader(*this, FileName).Load();
    }
    catch (const std::exception& Error)
    {
        SendMessage(std::string("An error occured : ") + Error.what());
        return false;
    }
}

bool TQXManagedCompilerAction::GetProjectCommandLine(ICommandLineBuilder& Builder,
                                                     std::initializer_list<std::string_view> CompactSwitches)
{
    std::string FileName;
    if (!TryExpandExpression("ProjectFile", ProjectFile, FileName, true))
        return false;
    FileName = ExpandRelativePath(FileName, Files::CurrentFolder());
    const bool Loaded = LoadProjectFile(FileName);
    ProjectDir = Paths::Folder(FileName);
    if (IsCompactFramework())
        for (const std::string_view Switch : CompactSwitches)
            Builder.AddArgument(Switch);
    return Loaded && TQXManagedCompilerAction::GetCommandLine(Builder);
}

bool TQXManagedCompilerAction::ValidateSources(IQXActionValidationError& Errors, bool HasSources) const
{
    if (ProjectDir.empty())
        Errors.AddError("Project Directory", "Project directory has not been set");
    if (!HasSources)
        Errors.AddError("Files", "Files to compile has not been set");
    return !ProjectDir.empty() && HasSources;
}

bool TQXManagedCompilerAction::ValidateProject(IQXActionValidationError& Errors) const
{
    if (ProjectFile.empty())
        Errors.AddError("Project File", "Project file has not been set");
    if (ConfigName.empty())
        Errors.AddError("Configuration", "The configuration to use has not been set");
    return !ProjectFile.empty() && !ConfigName.empty();
}

std::string TQXManagedCompilerAction::UnMangleConfigName(const std::string& Name) const
{
    const auto Bar = Name.find('|');
    if (Bar == std::string::npos)
        return Name;
    const std::string Left = Name.substr(0, Bar);
    const std::string Right = Name.substr(Bar + 1);
    const std::string_view Plain = IsCompactFramework() ? "Pocket PC" : ".NET";
    return Right == Plain ? Left : Right + Paths::Delimiter() + Left;
}

void TQXManagedCompilerAction::LoadSettingsFromProjFile(const TXmlElement& Settings)
{
    static constexpr TNamedValue<TDotNetTarget> Targets[] = {{"Library", TDotNetTarget::Lib},
                                                             {"Exe", TDotNetTarget::Exe},
                                                             {"Module", TDotNetTarget::Module},
                                                             {"WinExe", TDotNetTarget::WindowsExe}};
    OutputFile = GetAttributeValueString("AssemblyName", Settings);
    Target = FindNamedValue(Targets, GetAttributeValueString("OutputType", Settings), Target);
}

void TQXManagedCompilerAction::LoadConfigCompilerOptionsFromProjFile(const TXmlElement& Config)
{
    BaseAddress = GetAttributeValueString("BaseAddress", Config);
    Defines = GetAttributeValueString("DefineConstants", Config);
    Debug = GetAttributeValueBoolean("DebugSymbols", Config) ? TDotNetDebugOptions::DebugFull
                                                             : TDotNetDebugOptions::DebugOff;
    SupressWarnings = GetAttributeValueString("NoWarn", Config);
    Optimize = GetAttributeValueBoolean("Optimize", Config);
    WarnAsError = GetAttributeValueBoolean("TreatWarningsAsErrors", Config);
}

bool TQXManagedCompilerAction::LoadCompilerOtherSettings(const std::string& /*FileName*/, const TXmlElement& /*Root*/)
{
    return true;
}

bool TQXManagedCompilerAction::DetectNameSpace(const std::string& /*FileName*/, std::string& /*Name*/) const
{
    return false;
}

TDotNetVSVersion TQXManagedCompilerAction::DetectVSVersion(const std::string& FileName, const TXmlElement& Root) const
{
    const std::string Name = GetCompilerTypeInProjectFile(FileName);
    const auto Language = Name.empty() ? std::nullopt : Root.SelectNode(Name);
    if (!Language || !Language->HasAttribute("SchemaVersion"))
        return TDotNetVSVersion::vsInvalid;
    return Language->Attribute("SchemaVersion") == "1.0" ? TDotNetVSVersion::vs2002 : TDotNetVSVersion::vs2003;
}
