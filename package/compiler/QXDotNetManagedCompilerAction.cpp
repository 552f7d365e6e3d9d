#include "package/compiler/QXDotNetManagedCompilerAction.h"

#include "host/QXFiles.h"
#include "host/QXServices.h"
#include "host/QXUtilities.h"
#include "package/compiler/QXResponseFile.h"
#include "package/compiler/QXSatellites.h"
#include "package/plugin/QXActionHelpers.h"
#include "platform/CommandLines.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"

namespace
{
constexpr std::string_view ResolveScript = "OnResolveProjectReference";
constexpr std::string_view TargetSwitches[] = {"/target:exe", "/target:library", "/target:module", "/target:winexe"};
constexpr std::string_view DebugSwitches[] = {"", "/debug:full", "/debug:pdbonly"};
} // namespace

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
    if (Project.IsLoaded)
        Folder = ProjectDir;
    else if (!TryExpandExpression("Project Directory", ProjectDir, Folder, true) ||
             !CheckTarget(*this, "Project Directory", Folder))
        return false;
    // The tool runs there and would look for a relative response file below it.
    Folder = Paths::WithTrailing(ExpandRelativePath(Folder, Files::CurrentFolder()));
    return true;
}

bool TQXManagedCompilerAction::WriteLines(const std::string& FileName, const TStringList& Lines,
                                          std::string_view Message) const
{
    const bool Written = QXFiles().Write(FileName, Lines.Text());
    if (!Written)
        SendMessage(std::string(Message) + FileName);
    return Written;
}

bool TQXManagedCompilerAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    std::string Folder;
    if (!ExpandProjectDir(Folder))
        return false;
    TQXResponseFile File(*this, Folder);
    if (!GenerateResponseFile(File))
        return false;

    ResponseFileName = Folder + "qxresp.rsp";
    if (!WriteLines(ResponseFileName, File.Lines(), "Could not create the response file: "))
        return false;
    Builder.AddArgument('@' + CommandLines::Quote(ResponseFileName, true));
    SendMessage("Command Line : " + Builder.GetCommandLineText());
    return true;
}

TQXFileSetting TQXManagedCompilerAction::FileSetting(std::string_view Label, const std::string& Typed,
                                                     const std::vector<std::string>& Exact) const
{
    return {Label, Typed, Project.IsLoaded ? &Exact : nullptr};
}

bool TQXManagedCompilerAction::GenerateResponseFile(TQXResponseFile& File)
{
    File.Add(ElementText(TargetSwitches, Target));
    File.AddFlag(Optimize, "/optimize");
    if (!File.AddOption("/addmodule", "Modules", Modules) ||
        !File.AddReferences(FileSetting("References", References, Project.References)))
        return false;
    File.AddFlag(NoLogo, "/nologo");
    File.AddFlag(Debug != TDotNetDebugOptions::DebugOff, ElementText(DebugSwitches, Debug));
    if (!File.AddOption("/nowarn", "No warnings", SupressWarnings))
        return false;
    File.AddFlag(WarnAsError, "/warnaserror+");
    return File.AddOption("/define", "Define Preprocessor Symbols", Defines) && AddResources(File) &&
           AddOutputSwitches(File) && AddSources(File);
}

bool TQXManagedCompilerAction::AddResources(TQXResponseFile& File) const
{
    using enum TQXResourceNaming;
    std::string Root = RootNameSpace;
    if (!Project.IsLoaded && !TryExpandExpression("Root NameSpace", RootNameSpace, Root, false))
        return false;
    if (!File.AddLinkResources({"Link Resource", LinkResources}) ||
        !File.AddResources(FileSetting("Resource", Resources, Project.Resources), UnlessCompiled, Root) ||
        !File.AddResources({"Resource", {}, &Project.CompiledResources}, Always, Root) ||
        !File.AddResources({"Licenses", {}, &Project.LicenseResources}, None, Root))
        return false;
    File.AddResources(Project.NamedResources);
    return true;
}

bool TQXManagedCompilerAction::AddOutputSwitches(TQXResponseFile& File) const
{
    const bool IsLibrary = Target == TDotNetTarget::Lib || Target == TDotNetTarget::Module;
    // The IDE does not tell the compiler where a library starts.
    const std::string Main = IsLibrary && Project.IsLoaded && FollowsIDE() ? "" : MainClass;
    if ((IsLibrary && !File.AddOption("/baseaddress", "Base Address", BaseAddress)) ||
        !File.AddOption("/codepage", "Code Page", CodePage) || !File.AddOption("/main", "Main Class", Main))
        return false;
    if (Project.IsLoaded)
        File.AddExact("/out", OutputFile);
    else if (!File.AddTarget("/out", "Output File", OutputFile))
        return false;
    if (!(RecurseDir.empty() ? File.AddOption("/recurse", "Recurse Directory", RecurseFiles)
                             : File.AddOption("/recurse", "Recurse Directory", RecurseDir, RecurseFiles, "")))
        return false;
    File.AddFlag(OutputInUTF8, "/utf8output");
    return true;
}

bool TQXManagedCompilerAction::AddSources(TQXResponseFile& File) const
{
    bool Found = false;
    if (!File.AddSources(FileSetting("Files", Files, Project.Sources), Found))
        return false;
    if (!Found && RecurseFiles.empty())
    {
        SendMessage("No Files to Compile!");
        return false;
    }
    return true;
}

bool TQXManagedCompilerAction::AddIcons(TQXResponseFile& File) const
{
    return File.AddFileSwitches("/win32icon", FileSetting("Icons", Icon, Project.Icons));
}

bool TQXManagedCompilerAction::AddWin32Resources(TQXResponseFile& File, std::string_view Switch) const
{
    return File.AddFileSwitches(Switch, FileSetting("Win32 Resources", Win32Resources, Project.Win32Resources));
}

void TQXManagedCompilerAction::AddWarningLevel(TDotNetWarningLevels Level, TQXResponseFile& File)
{
    File.Add("/warn:" + std::to_string(static_cast<int>(Level)));
}

std::string TQXManagedCompilerAction::GetStartingDir(const std::string& /*Exe*/)
{
    std::string Folder;
    if (ExpandProjectDir(Folder))
        return Folder;
    SendMessage("ERROR! Unable to expand project directory");
    return {};
}

std::vector<std::string> TQXManagedCompilerAction::GetOutputs()
{
    std::string Folder;
    const std::string Typed(Texts::Trim(Project.IsLoaded ? OutputFile : ExpandExpression(OutputFile, false)));
    if (Typed.empty() || !ExpandProjectDir(Folder))
        return {};
    std::vector<std::string> Outputs{Paths::Join(Folder, StripQuotes(Typed))};
    // These go where the output is copied.
    if (Project.IsLoaded && FollowsIDE() && Debug != TDotNetDebugOptions::DebugOff)
        Outputs.push_back(IsMono() ? Outputs.front() + ".mdb" : Paths::ChangeExtension(Outputs.front(), ".pdb"));
    if (Project.IsLoaded && FollowsIDE() && !Project.Documentation.empty())
        Outputs.push_back(Paths::Join(Folder, Project.Documentation));
    return Outputs;
}

bool TQXManagedCompilerAction::AfterExecute()
{
    return TQXDotNetAction::AfterExecute() && MakeSatellites(*this);
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
        static_cast<void>(QXFiles().Delete(ResponseFileName));
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
    // A failure has been reported; the name then stays as it is.
    static_cast<void>(ExecuteScript(ResolveScript));
    const std::string* Result = std::get_if<std::string>(&Script->FindParam("ResolvedAssemblyFilePath")->Value());
    return Result ? *Result : FileName;
}

bool TQXManagedCompilerAction::ValidateSources(IQXActionValidationError& Errors, bool HasSources) const
{
    return Require(Errors, {{ProjectDir, "Project Directory", "Project directory has not been set"},
                            {HasSources, "Files", "Files to compile has not been set"}});
}
