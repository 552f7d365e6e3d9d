#include "package/sdktools/QXNGen20BaseAction.h"

#include "host/QXUtilities.h"
#include "package/plugin/QXActionHelpers.h"
#include "platform/Paths.h"

#include <stdexcept>

bool TQXNGen20BaseAction::GetCommandLine(ICommandLineBuilder& Builder)
try
{
    Builder.SetSwitchSeparator(":");
    Builder.AddArgument(GetNGenCommand());
    AddArguments(Builder);
    return true;
}
catch (const std::exception& Error)
{
    SendMessage("An error occured : ");
    SendMessage(Error.what());
    return false;
}

bool TQXNGen20BaseAction::BeforeExecute(ICommandLineBuilder& Builder)
{
    if (!TQXDotNetAction::BeforeExecute(Builder))
        return false;
    SendMessage("Command line : ngen " + Builder.GetCommandLineText());
    return true;
}

void TQXNGen20BaseAction::PublishQueued()
{
    Publish("Queued", Queued, "Leave the work to the native image service");
}

void TQXNGen20BaseAction::PublishVerbose()
{
    Publish("Verbose", Verbose, "Say more of what is done");
}

void TQXNGen20BaseAction::AddQueueAndVerbose(ICommandLineBuilder& Builder) const
{
    AddFlags(Builder, {{Queued, "/queue"}, {Verbose, "/verbose"}});
}

TQXNGen20AssemblyAction::TQXNGen20AssemblyAction()
{
    Publish("UseAssemblyName", UseAssemblyName, "Name the assembly by its display name and not by its file");
    Publish("AssemblyName", AssemblyName, "Display name of an assembly in the global assembly cache").Expression();
    Publish("AssemblyPath", AssemblyPath, "File of the assembly").File();
    Publish("Debug", Debug, "Images for use with a debugger");
    Publish("Profile", Profile, "Images for use with a profiler");
    Publish("NoDep", NoDep, "As few images of assemblies that it depends on as can be");
    Publish("UseExecConfig", UseExecConfig, "Take the configuration of an executable");
    Publish("ExeConfigPath", ExeConfigPath, "Executable whose configuration counts").File();
    Publish("UseAppBase", UseAppBase, "Look for what it depends on in the application's folder");
    Publish("AppBasePath", AppBasePath, "The application's folder").Folder();
}

void TQXNGen20AssemblyAction::AddArguments(ICommandLineBuilder& Builder) const
{
    AddAssemblyName(Builder);
    AddScenarios(Builder);
    AddConfig(Builder);
}

void TQXNGen20AssemblyAction::AddAssemblyName(ICommandLineBuilder& Builder) const
{
    const std::string Label = UseAssemblyName ? "Assembly Name" : "Assembly Path";
    std::string Assembly;
    if (!TryExpandExpression(Label, UseAssemblyName ? AssemblyName : AssemblyPath, Assembly, true))
        throw std::runtime_error(Label + " could not be expanded.");
    // Quotes that the user wrote, wherever they stand, are the user's affair.
    const bool IsQuoted = Assembly.find('"') != std::string::npos;
    Builder.AddArgument("", Assembly, IsQuoted ? amPlain : amNormal);
}

void TQXNGen20AssemblyAction::AddScenarios(ICommandLineBuilder& Builder) const
{
    AddFlags(Builder, {{Debug, "/Debug"}, {Profile, "/Profile"}, {NoDep, "/NoDependencies"}});
}

void TQXNGen20AssemblyAction::AddConfig(ICommandLineBuilder& Builder) const
{
    if (UseExecConfig && !AddExpanded(*this, Builder, "/ExeConfig", "Exe Config Path", ExeConfigPath, amQuoted))
        throw std::runtime_error("Exe Config Path is invalid.");
    if (UseAppBase && !AddExpanded(*this, Builder, "/AppBase", "App base path", AppBasePath, amQuoted))
        throw std::runtime_error("App base path is invalid.");
}

std::string TQXNGen20AssemblyAction::GetStartingDir(const std::string& /*Exe*/)
{
    std::string File;
    if (UseAssemblyName)
        return {};
    if (!TryExpandExpression("Assembly Path", AssemblyPath, File, true))
    {
        SendMessage("Warning : Assembly Path could not be expanded.");
        return {};
    }
    return Paths::WithoutTrailing(Paths::Folder(StripQuotes(File)));
}
