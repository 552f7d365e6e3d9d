#include "package/analysis/QXDemeanorAction.h"

#include "host/QXFiles.h"
#include "package/analysis/QXDemeanorOptions.h"
#include "package/plugin/QXActionHelpers.h"
#include "platform/Paths.h"

namespace
{
constexpr std::string_view Namings[] = {"/names:alpha", "/names:numeric", "/names:unicode"};
constexpr std::string_view Exemptions[] = {"/noEnumerations", "/noEvents",     "/noFields", "/noMethods",
                                           "/noParameters",   "/noProperties", "/noTypes",  "/noResources"};
constexpr auto Categories = static_cast<int>(QXElements(TDemeanorCategory{}).size());

constexpr const char* EnterpriseNames[] = {"IsEnterprise",
                                           "EnterpriseAssemblyName",
                                           "EnterpriseExcludeAssemblyName",
                                           "EnterpriseApplication",
                                           "EnterpriseConfigFile",
                                           "EnterpriseEncryptStrings",
                                           "EnterpriseNoSerializable",
                                           "EnterpriseSatelliteAssemblies"};
} // namespace

TQXDemeanorAction::TQXDemeanorAction()
{
    for (int Category = 0; Category < Categories; ++Category)
        ObfuscateCategories.Include(static_cast<TDemeanorCategory>(Category));
    PublishAll();
    PublishEnterprise();
}

void TQXDemeanorAction::PublishAll()
{
    Publish("AssemblyName", AssemblyName, "Assembly to obfuscate")
        .File()
        .Required("bin/Acme.Core.dll")
        .Alias("Assembly Name")
        .Help("Filename of the assembly to obfuscate.");
    Publish("ObfuscateAll", ObfuscateAll, "Obfuscate regardless of visibility")
        .Alias("Obfuscate All")
        .Help("Obfuscate as many symbols as possible ignoring the visibility of the type.");
    Publish("CompilerControlled", CompilerControlled, "Make obfuscated members compiler-controlled")
        .Alias("Compiler Controlled Obfuscation")
        .Help("Requests to change the accessibility of obfuscated methods and fields to compiler-controlled (a.k.a. "
              "privatescope) accessibility.");
    Publish("Exclude", Exclude, "Types and members left alone, one a line")
        .Alias("Exclude")
        .Help("Do not obfuscate the specified types or members");
    Publish("InSitu", InSitu, "Obfuscate the metadata in place")
        .Alias("Obfuscate In Situ")
        .Help("Obfuscate the metadata in situ and leave the rest of the portable-executable (PE) file untouched");
    Publish("OutputFolder", OutputFolder, "Folder for the result; it is made")
        .Folder()
        .Alias("Output Folder")
        .Help("Directory in which to place the obfuscated assembly. The directory cannot be the same as the directory "
              "containing the input assembly.");
    Publish("Naming", Naming, "Kind of obfuscated names")
        .Alias("Naming")
        .Help("Forces obfuscation to use either alphabetic Latin characters, numbers or Unicode code points as the "
              "obfuscated names.");
    Publish("ReportFile", ReportFile, "Report file; its folder is made")
        .File()
        .Alias("Report File")
        .Help("Creates an XML-based obfuscation report file in the output directory.");
    Publish("ObfuscateCategories", ObfuscateCategories, "What is obfuscated")
        .Alias("Obfuscate Elements")
        .Help("These diagnostic options allow you to disable all obfuscation of the specified category of types or "
              "members.");
    Publish("ForceParameters", ForceParameters, "Obfuscate all names of parameters")
        .Alias("Force Parameters")
        .Help("Forces all parameter names to be obfuscated, for obfuscated and unobfuscated methods.");
    Publish("RegularExpressions", RegularExpressions, "Regular expressions of what is left alone, one a line")
        .Alias("Regular Expressions")
        .Help("Do not obfuscate types and members that match the specified regular expressions.");
    Publish("Verbose", Verbose, "Statistics on the console, and the command line in the log")
        .Alias("Verbose Output")
        .Help("Display obfuscation statistics to the console.");
}

void TQXDemeanorAction::PublishEnterprise()
{
    Publish("IsEnterprise", IsEnterprise, "The Enterprise edition is installed")
        .Alias("Is Enterprise")
        .Help("Specifies whether the Personal or the Enterprise Edition is installed. Some options are only supported "
              "in the Enterpise Edition.");
    Publish("EnterpriseAssemblyName", EnterpriseAssemblyName, "Not used: assembly to add")
        .File()
        .Alias("Assembly Name")
        .Help("Adds an assembly to the set of assemblies obfuscated when you specify the Obfuscate Application "
              "option.");
    Publish("EnterpriseExcludeAssemblyName", EnterpriseExcludeAssemblyName, "Not used: assemblies to exclude")
        .Alias("Exclude Assembly Name")
        .Help("Excludes an assembly from the set of assemblies obfuscated when you specify the Obfuscate Application "
              "option.");
    Publish("EnterpriseApplication", EnterpriseApplication, "Not used: obfuscate the application")
        .Alias("Obfuscate Application")
        .Help("Requests obfuscation of an entire application plus all dependent private assemblies that are statically "
              "referenced by the specified application, plus their statically referenced dependent private "
              "assemblies, and so on.");
    Publish("EnterpriseConfigFile", EnterpriseConfigFile, "Not used: report file to read back")
        .File()
        .Alias("Configuration File")
        .Help("Reads a previously written report file and use the information in the file when performing the current "
              "obfuscation.");
    Publish("EnterpriseEncryptStrings", EnterpriseEncryptStrings, "Not used: encrypt strings")
        .Alias("Encrypt Strings")
        .Help("Encrypts the literal strings present in the obfuscated assemblies.");
    Publish("EnterpriseNoSerializable", EnterpriseNoSerializable, "Not used: leave serializable types alone")
        .Alias("No Serializable")
        .Help("Does not obfuscate the name of types to which you have applied the [Serializable] attribute.");
    Publish("EnterpriseSatelliteAssemblies", EnterpriseSatelliteAssemblies, "Not used: satellite assemblies")
        .Alias("Satellite Assemblies")
        .Help("Updates the names of managed resources in culture-specific satellite resource assemblies.");
}

void TQXDemeanorAction::GetHiddenProperties(TStringList& List) const
{
    TQXExecuteAbstractAction::GetHiddenProperties(List);
    for (const char* Name : EnterpriseNames)
        List.Add(Name);
}

std::string TQXDemeanorAction::GetExecutable()
{
    const IQXDemeanorOptions* Options = DemeanorOptions();
    return Options ? Options->GetDemeanorExe() : "";
}

bool TQXDemeanorAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    AddFlags(Builder, {{ObfuscateAll, "/all"}, {CompilerControlled, "/cc"}, {InSitu, "/insitu"}, {Verbose, "/v"}});
    AddExclusions(Builder);
    Builder.AddArgument(ElementText(Namings, Naming));
    AddTargets(Builder);
    AddCategories(Builder);
    AddFlags(Builder, {{ForceParameters, "/forceparameters"}});
    Builder.AddArgument("", ExpandExpression(AssemblyName, true));
    if (Verbose)
        SendMessage("Using commandline: " + Builder.GetCommandLineText());
    return true;
}

void TQXDemeanorAction::AddExclusions(ICommandLineBuilder& Builder) const
{
    if (!Exclude.IsEmpty())
        Builder.AddArgument("/x:" + Exclude.CommaText());
    for (const std::string& Expression : RegularExpressions)
        Builder.AddArgument("/xr:" + Expression);
}

/// Where a folder cannot be made the tool misses it.
void TQXDemeanorAction::AddTargets(ICommandLineBuilder& Builder) const
{
    const auto Make = [](const std::string& Folder) {
        if (!Folder.empty() && !Paths::IsForeign(Folder))
            static_cast<void>(QXFiles().ForceFolders(Folder));
    };
    if (!OutputFolder.empty())
    {
        const std::string Folder = ExpandExpression(OutputFolder, true);
        Make(Folder);
        Builder.AddArgument("/out:" + QuotePath(Folder));
    }
    if (!ReportFile.empty())
    {
        const std::string File = ExpandExpression(ReportFile, true);
        Make(Paths::Folder(File));
        Builder.AddArgument("/report:" + QuotePath(File));
    }
}

void TQXDemeanorAction::AddCategories(ICommandLineBuilder& Builder) const
{
    for (int Index = 0; Index < Categories; ++Index)
        if (const auto Category = static_cast<TDemeanorCategory>(Index); !ObfuscateCategories.Contains(Category))
            Builder.AddArgument(ElementText(Exemptions, Category));
}

std::vector<std::string> TQXDemeanorAction::GetOutputs()
{
    std::vector<std::string> Files;
    if (!OutputFolder.empty())
        Files.push_back(
            Paths::Join(ExpandExpression(OutputFolder, false), Paths::FileName(ExpandExpression(AssemblyName, false))));
    if (!ReportFile.empty())
        Files.push_back(ExpandExpression(ReportFile, false));
    return Files;
}

bool TQXDemeanorAction::InterpretResult(int ExitCode)
{
    if (ExitCode != 0)
        SendMessage("ReturnValue is " + ExitCodeText(ExitCode));
    return ExitCode == 0;
}

bool TQXDemeanorAction::Validate(IQXActionValidationError& Errors)
{
    return Require(Errors, {{QXFiles().FileExists(GetExecutable()), "Demeanor Options",
                             "Path to demeanor.exe not specified or incorrect, please check Tools->Options"},
                            {AssemblyName, "Assembly Name", "Assembly name has not been set"}});
}
