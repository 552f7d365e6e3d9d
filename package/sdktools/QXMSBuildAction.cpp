#include "package/sdktools/QXMSBuildAction.h"

#include "host/QXFiles.h"
#include "package/plugin/QXActionHelpers.h"
#include "platform/CommandLines.h"

#include "platform/Text.h"

namespace
{
constexpr std::string_view Verbosities[] = {"/v:quiet", "/v:minimal", "/v:normal", "/v:detailed", "/v:diagnostic"};
} // namespace

TMSBuildAction::TMSBuildAction()
{
    MinimumSDKVersion = "1.2";
    Publish("BuildFile", BuildFile, "The project file to build").File().Required("%ProjectDir%/Acme.proj");
    Publish("Properties", Properties, "Properties for the build, one Name=Value a line").Expression();
    Publish("LogLevel", LogLevel, "How much the tool tells");
    Publish("OutputToLog", OutputToLog, "Not used: the tool's output is always logged");
    Publish("Targets", Targets, "Targets to build").List(';');
    Publish("NoLogo", NoLogo, "Leave out the tool's banner");
    Publish("Restricted", Restricted, "Run the build with fewer permissions");
}

bool TMSBuildAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    Builder.SetSwitchSeparator("");
    Builder.AddArgument(ElementText(Verbosities, LogLevel));
    if (!AddProperties(Builder))
        return false;
    AddFlags(Builder, {{NoLogo, "/nologo"}, {Restricted, "/restricted"}});
    return AddOptional(*this, Builder, "/target:", "Targets", Targets) && AddBuildFile(Builder);
}

/// Each value stands in quotes of its own, so that the builder must not quote the whole.
bool TMSBuildAction::AddProperties(ICommandLineBuilder& Builder) const
{
    std::string Collected;
    for (std::size_t Index = 0; Index < Properties.Count(); ++Index)
    {
        const std::string Written = Properties.Name(Index);
        if (Texts::Trim(Written).empty())
            continue;
        std::string Name;
        std::string Value;
        if (!ExpandRequired(*this, {{"Property", Written, Name}, {"Value", Properties.Value(Written), Value}}))
            return false;
        if (IsMono()) // drops the quotes before it parts the text
            Value = Texts::Replace(Texts::Replace(Value, ";", "%3B"), "=", "%3D");
        Collected += (Collected.empty() ? "/property:" : ";") + Name + '=' + CommandLines::Quote(Value, true);
    }
    if (!Collected.empty())
        Builder.AddArgument(Collected);
    return true;
}

bool TMSBuildAction::AddBuildFile(ICommandLineBuilder& Builder) const
{
    std::string File;
    if (!TryExpandExpression("Project File", BuildFile, File, true))
        return false;
    const std::string Found = QXFiles().Find(File);
    if (!QXFiles().FileExists(Found))
    {
        SendMessage("Project file does not exist : " + File);
        return false;
    }
    Builder.AddArgument("", Found);
    return true;
}

void TMSBuildAction::OnFailure(int ExitCode)
{
    TQXDotNetAction::OnFailure(ExitCode);
    ExplainMono(Restricted, "Mono's build tool does not know /restricted");
}

bool TMSBuildAction::Validate(IQXActionValidationError& Errors)
{
    return Require(Errors, {{BuildFile, "Project File", "Project file has not been set"}});
}
