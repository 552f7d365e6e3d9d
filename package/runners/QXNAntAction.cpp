#include "package/runners/QXNAntAction.h"

#include "host/QXFiles.h"
#include "package/plugin/QXActionHelpers.h"
#include "package/runners/QXNAntOptions.h"

namespace
{
constexpr std::string_view LogLevels[] = {"-quiet", "", "-verbose", "-debug"};
constexpr std::string_view Indents[] = {"",          "-indent:0", "-indent:1", "-indent:2",
                                        "-indent:3", "-indent:4", "-indent:5", "-indent:6"};
} // namespace

TNAntAction::TNAntAction()
{
    LogOutput = true;
    HideWindow = true;
    Publish("BuildFile", BuildFile, "Full path of the build file; the tool starts in its folder")
        .File()
        .Required("%ProjectDir%/Acme.build");
    Publish("Properties", Properties, "Properties for the build, one Name=Value a line; quotes keep blanks together")
        .Expression();
    Publish("PropFile", PropFile, "Not used");
    Publish("LogLevel", LogLevel, "How much the tool tells");
    Publish("OutputToLog", OutputToLog, "Have the tool write its log to the file of LogFile");
    Publish("LogFile", LogFile, "File that the tool's log is written to").File();
    Publish("Targets", Targets, "Targets to build; none: the build file's default").List(' ');
    Publish("IndentLevel", IndentLevel, "How far the tool indents what it tells");
    Publish("NoLogo", NoLogo, "Leave out the tool's banner");
    Publish("Framework", Framework, "The .NET framework to build for, as the tool names it: net-1.1").Expression();
}

std::string TNAntAction::GetExecutable()
{
    const IQXNAntOptions* Options = NAntOptions();
    return Options ? Options->GetNAntLocation() : "";
}

std::string TNAntAction::GetStartingDir(const std::string& /*Exe*/)
{
    return ExpandFolderOf(*this, "Starting Dir", BuildFile);
}

bool TNAntAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    Builder.SetSwitchSeparator("");
    if (!QXFiles().FileExists(GetExecutable()))
    {
        SendMessage("NAnt.exe not found, check location in Options");
        return false;
    }
    Builder.AddArgument(ElementText(LogLevels, LogLevel));
    return AddFile(*this, Builder, "-buildfile:", "Build File", BuildFile, "Build file does not exist : ") &&
           AddOptional(*this, Builder, "-defaultframework:", "Default Framework", Framework) &&
           AddProperties(Builder) && AddLogSettings(Builder) && AddFreeText(*this, Builder, "Targets", Targets);
}

bool TNAntAction::AddProperties(ICommandLineBuilder& Builder) const
{
    return ExpandProperties(*this, Properties, [&](const std::string& Name, const std::string& Value) {
        Builder.AddArgument("-D:" + Name + '=' + Value);
    });
}

bool TNAntAction::AddLogSettings(ICommandLineBuilder& Builder) const
{
    if (OutputToLog && !AddExpanded(*this, Builder, "-logfile:", "Logfile", LogFile))
        return false;
    AddFlags(Builder, {{NoLogo, "-nologo"}});
    Builder.AddArgument(ElementText(Indents, IndentLevel));
    return true;
}

bool TNAntAction::Validate(IQXActionValidationError& Errors)
{
    const bool HasTool = RequireTool(Errors, GetExecutable(),
                                     {"NAnt Options", "Path to nant.exe not defined, please check Tools->Options"},
                                     {"Options", "Path to nant.exe not correct, please check Tools->Options"});
    return Require(Errors, {{BuildFile, "Build File", "Build file has not been set"}}) && HasTool;
}
