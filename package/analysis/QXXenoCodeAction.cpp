#include "package/analysis/QXXenoCodeAction.h"

#include "host/QXFiles.h"
#include "package/plugin/QXActionHelpers.h"
#include "platform/CommandLines.h"
#include "platform/Paths.h"

namespace
{
constexpr std::string_view Presets[] = {"", "aggr", "cons", "null", "size", "meta"};
} // namespace

TQXXenoCodeAction::TQXXenoCodeAction()
{
    Publish("ConfigFile", ConfigFile,
            "Configuration file, for XenoCode 2006 the project file; the tool starts in its folder")
        .File()
        .Required("%ProjectDir%/Acme.postbuild");
    Publish("OutputFolder", OutputFolder, "Folder for the result; empty: a folder XenoCode beside the tool").Folder();
    Publish("MapFile", MapFile, "File for the map of old and new names").File();
    Publish("Watermarks", Watermarks, "Watermarks to put into the assemblies, one a line").Expression();
    Publish("Preset", Preset, "Preset of the obfuscation; size and meta need XenoCode 2005 or later");
    Publish("PassPhrase", PassPhrase, "Pass phrase for the tool").Secret();
    Publish("EncryptStrings", EncryptStrings, "Encrypt all strings");
    PublishAccessors<TXenoCodeVersion>(
        "XenoCodeVersion", "Generation of the tool to run; that of the options if none is named",
        [this] { return GetXenoCodeVersion(); },
        [this](const TXenoCodeVersion& Version) { SetXenoCodeVersion(Version); })
        .StoredWhile([this] { return FIsVersionSet; });
}

TXenoCodeVersion TQXXenoCodeAction::GetXenoCodeVersion() const
{
    if (!FVersion)
    {
        const IQXXenoCodeOptions* Options = XenoCodeOptions();
        FVersion = Options ? Options->GetXenoCodeVersion() : XenoCode2006;
    }
    return *FVersion;
}

void TQXXenoCodeAction::SetXenoCodeVersion(TXenoCodeVersion Version)
{
    FVersion = Version;
    FIsVersionSet = true;
}

std::string TQXXenoCodeAction::GetExecutable()
{
    const IQXXenoCodeOptions* Options = XenoCodeOptions();
    const TXenoCodeVersion Version = GetXenoCodeVersion();
    if (!Options)
        return {};
    if (Version == XenoCode2004)
        return Options->GetXenoCode2004Exe();
    return Version == XenoCode2005 ? Options->GetXenoCode2005Exe() : Options->GetXenoCode2006Exe();
}

std::string TQXXenoCodeAction::GetStartingDir(const std::string& /*Exe*/)
{
    std::string File;
    return TryExpandExpression("Configuration File", ConfigFile, File, true) ? Paths::Folder(File) : "";
}

bool TQXXenoCodeAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    Builder.SetSwitchSeparator(" ");
    if (!AddConfiguration(Builder) || !AddOutputFolder(Builder))
        return false;
    AddMapAndMarks(Builder);
    if (!AddPreset(Builder))
        return false;
    AddPassPhrase(Builder);
    AddFlags(Builder, {{EncryptStrings, "/allstrings"}});
    if (PassPhrase.empty())
        SendMessage("Using command-line: " + Builder.GetCommandLineText());
    return true;
}

bool TQXXenoCodeAction::AddConfiguration(ICommandLineBuilder& Builder) const
{
    const std::string File = ExpandExpression(ConfigFile, true);
    if (!QXFiles().FileExists(File))
    {
        SendMessage("Project/Configuration File not specified or not found. Unable to continue");
        return false;
    }
    Builder.AddArgument("", QXFiles().Find(File));
    return true;
}

bool TQXXenoCodeAction::AddOutputFolder(ICommandLineBuilder& Builder)
{
    std::string Folder;
    if (!TryExpandExpression("Output directory", OutputFolder, Folder, false))
        return false;
    if (Folder.empty())
        Folder = Paths::Folder(GetExecutable()) + "XenoCode";
    if (!CheckTarget(*this, "OutputFolder", Folder) || !QXFiles().ForceFolders(Folder))
    {
        SendMessage("Could not create output folder. Unable to continue.");
        return false;
    }
    const bool HasSwitch = GetXenoCodeVersion() != XenoCode2004;
    Builder.AddArgument(HasSwitch ? "/o" : "", QXFiles().Spelling(Folder), amQuoted);
    return true;
}

void TQXXenoCodeAction::AddMapAndMarks(ICommandLineBuilder& Builder) const
{
    if (!MapFile.empty())
        Builder.AddArgument("/m", ExpandExpression(MapFile, true), amQuoted);
    for (const std::string& Watermark : Watermarks)
        Builder.AddArgument("/w", ExpandExpression(Watermark, false), amQuoted);
}

bool TQXXenoCodeAction::AddPreset(ICommandLineBuilder& Builder) const
{
    const bool IsLater = Preset == xpcSize || Preset == xpcMeta;
    if (IsLater && GetXenoCodeVersion() == XenoCode2004)
    {
        SendMessage(Preset == xpcSize ? "Size preset not applicable for XenoCode 2004"
                                      : "Meta preset not applicable for XenoCode 2004");
        return false;
    }
    if (Preset != xcpUseDefault)
        Builder.AddArgument("/p", ElementText(Presets, Preset));
    return true;
}

/// Quotes that enclose the phrase are the user's; others belong to it.
void TQXXenoCodeAction::AddPassPhrase(ICommandLineBuilder& Builder) const
{
    if (PassPhrase.empty())
        return;
    const bool IsQuoted = PassPhrase.size() > 1 && PassPhrase.front() == '"' && PassPhrase.back() == '"';
    Builder.AddArgument("/passphrase", IsQuoted ? PassPhrase : CommandLines::Quote(PassPhrase, true));
}

std::vector<std::string> TQXXenoCodeAction::GetOutputs()
{
    const std::string Map = ExpandExpression(MapFile, false);
    if (Map.empty())
        return {};
    return {Paths::Expand(Map, GetStartingDir(""))};
}

bool TQXXenoCodeAction::InterpretResult(int ExitCode)
{
    SendMessage(ExitCode == 0 ? "Done" : "Return value is: " + ExitCodeText(ExitCode));
    return ExitCode == 0;
}

bool TQXXenoCodeAction::Validate(IQXActionValidationError& Errors)
{
    const bool HasTool =
        RequireTool(Errors, GetExecutable(), {"XenoCode Option", "XenoCode Executable not set in Tools->Options"},
                    {"XenoCode Option", "XenoCode Executable not found, please check path in Tools->Options"});
    return Require(Errors, {{ConfigFile, "Configuration File", "Configuration file is not set"}}) && HasTool;
}
