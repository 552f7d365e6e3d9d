#include "package/sdktools/QXMSBuildAction.h"

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
    return AddOptional(*this, Builder, "/target:", "Targets", Targets) &&
           AddFile(*this, Builder, "", "Project File", BuildFile, "Project file does not exist : ");
}

/// Each value stands in quotes of its own, so that the builder must not quote the whole.
bool TMSBuildAction::AddProperties(ICommandLineBuilder& Builder) const
{
    std::string Collected;
    // Mono drops the quotes before it parts the text.
    const auto Collect = [&](const std::string& Name, const std::string& Value) {
        const std::string Text = IsMono() ? Texts::Replace(Texts::Replace(Value, ";", "%3B"), "=", "%3D") : Value;
        Collected += (Collected.empty() ? "/property:" : ";") + Name + '=' + CommandLines::Quote(Text, true);
    };
    if (!ExpandProperties(*this, Properties, Collect))
        return false;
    Builder.AddArgument(Collected);
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
