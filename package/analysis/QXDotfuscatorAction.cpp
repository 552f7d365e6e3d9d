#include "package/analysis/QXDotfuscatorAction.h"

#include "host/QXFiles.h"
#include "host/QXUtilities.h"
#include "package/analysis/QXDotfuscatorOptions.h"
#include "package/plugin/QXActionHelpers.h"
#include "platform/Paths.h"

#include <cstddef>

namespace
{
constexpr std::string_view Verbosities[] = {"/q", "", "/v"};
} // namespace

TQXDotfuscatorAction::TQXDotfuscatorAction()
{
    LogOutput = true;
    HideWindow = true;
    Publish("InvestigateOnly", InvestigateOnly, "Run without writing any output")
        .Alias("Investigate Only")
        .Help("If activated, Dotfuscator runs without writing anything to the output. For testing only");
    Publish("Properties", Properties, "Overrides of the configuration's properties, one Name=Value a line")
        .Expression()
        .Alias("Properties")
        .Help("List of additional properties needéd to configure the configuration file. Optional");
    Publish("ConfigurationFile", ConfigurationFile, "The tool's configuration file; the tool starts in its folder")
        .File()
        .Required("%ProjectDir%/Acme.dotfuscator.xml")
        .Alias("Configuration File")
        .Help("THe file containing the configuration for the obfuscation. This file should be created in the "
              "Dotfuscator GUI. Required");
    Publish("Verbosity", Verbosity, "How much the tool tells")
        .Alias("Verbosity")
        .Help("Sets the analysis report level.");
    Publish("ShowDotfuscatorWindow", ShowDotfuscatorWindow, "Show the tool's window")
        .Alias("Show Dotfuscator Window")
        .Help("Show Dotfuscator window, useful for community edition as it pops up a dialog");
}

std::string TQXDotfuscatorAction::GetExecutable()
{
    const IQXDotfuscatorOptions* Options = DotfuscatorOptions();
    return Options ? Options->GetDotfuscatorExe() : "";
}

std::string TQXDotfuscatorAction::GetStartingDir(const std::string& /*Exe*/)
{
    std::string File;
    return TryExpandExpression("Configuration File", ConfigurationFile, File, true) ? Paths::Folder(File) : "";
}

bool TQXDotfuscatorAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    HideWindow = !ShowDotfuscatorWindow;
    AddFlags(Builder, {{true, ElementText(Verbosities, Verbosity)}, {InvestigateOnly, "/i"}});
    AddProperties(Builder);
    if (!AddConfiguration(Builder))
        return false;
    if (Verbosity != dvQuiet)
        SendMessage("Using commandline: " + Builder.GetCommandLineText());
    return true;
}

/// All in one argument. A line of two characters has no value to give.
void TQXDotfuscatorAction::AddProperties(ICommandLineBuilder& Builder) const
{
    std::string Text;
    for (std::size_t Index = 0; Index < Properties.Count(); ++Index)
        if (Properties[Index].size() > 2)
            Text += (Text.empty() ? "/p=" : ",") + ExpandExpression(Properties.Name(Index), true) + '=' +
                    DoubleQuoteString(ExpandExpression(Properties.ValueAt(Index), true), true);
    AddFlags(Builder, {{!Text.empty(), Text}});
}

bool TQXDotfuscatorAction::AddConfiguration(ICommandLineBuilder& Builder) const
{
    std::string File;
    if (!TryExpandExpression("Configuration File", ConfigurationFile, File, true))
        return false;
    if (!QXFiles().FileExists(File))
    {
        SendMessage("Error: Configuration file does not exists or not specified");
        return false;
    }
    Builder.AddArgument("", QXFiles().Find(File));
    return true;
}

bool TQXDotfuscatorAction::InterpretResult(int ExitCode)
{
    const bool IsQuietSuccess = Verbosity == dvQuiet && ExitCode == 0;
    SendMessage(IsQuietSuccess ? "Done" : "Return value is: " + ExitCodeText(ExitCode));
    return ExitCode == 0;
}

bool TQXDotfuscatorAction::Validate(IQXActionValidationError& Errors)
{
    return Require(Errors,
                   {{GetExecutable(), "Dotfuscation Option", "Dotfuscator Executable not set in Tools->Options"},
                    {ConfigurationFile, "Configuration File", "Configuration file is not set"}});
}
