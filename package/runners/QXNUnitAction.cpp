#include "package/runners/QXNUnitAction.h"

#include "package/plugin/QXActionHelpers.h"
#include "package/runners/QXNUnitOptions.h"
#include "platform/Paths.h"

#include <algorithm>

TQXNUnitAction::TQXNUnitAction()
{
    LogOutput = true;
    HideWindow = true;
    Publish("UseProjectFile", UseProjectFile, "Test what the project file names and not the assemblies");
    Publish("ProjectFile", ProjectFile, "Full path of the NUnit project; the tool starts in its folder")
        .File()
        .Required("%ProjectDir%/Acme.nunit");
    Publish("Assemblies", Assemblies, "Full paths of assemblies; the tool starts in the folder of the first").File();
    Publish("Fixture", Fixture, "Name of the only fixture to run").Expression();
    Publish("XMLOutputFile", XMLOutputFile, "File for the results as XML").File();
    Publish("TransformFile", TransformFile, "Style sheet by which the tool shows its results").File();
    Publish("NoLogo", NoLogo, "Leave out the tool's banner");
    Publish("XMLToConsole", XMLToConsole, "Show the results as XML");
    Publish("ProjectConfig", ProjectConfig, "Configuration of the project to test").Expression();
    Publish("FailIfNoTests", FailIfNoTests, "A run that ends well without a test is a failure");
}

std::string TQXNUnitAction::GetExecutable()
{
    const IQXNUnitOptions* Options = NUnitOptions();
    return Options ? Options->GetNUnitLocation() : "";
}

std::string TQXNUnitAction::GetStartingDir(const std::string& Exe)
{
    std::string Folder;
    if (UseProjectFile)
        Folder = ExpandFolderOf(*this, "ProjectFile", ProjectFile);
    else if (!Assemblies.IsEmpty())
        Folder = ExpandFolderOf(*this, "Assembly", Assemblies[0]);
    return Folder.empty() ? Paths::Folder(Exe) : Folder;
}

bool TQXNUnitAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    Builder.SetSwitchSeparator("");
    if (!AddInput(Builder) || !AddOptional(*this, Builder, "/fixture=", "Fixture", Fixture) ||
        !AddOptional(*this, Builder, "/xml=", "XMLOutputFile", XMLOutputFile) ||
        !AddOptional(*this, Builder, "/transform=", "TransformFile", TransformFile) ||
        !AddOptional(*this, Builder, "/config=", "ProjectConfig", ProjectConfig))
        return false;
    AddFlags(Builder, {{NoLogo, "/nologo"}, {XMLToConsole, "/xmlConsole"}});
    SendMessage("Command Line: " + Builder.GetCommandLineText());
    return true;
}

bool TQXNUnitAction::AddInput(ICommandLineBuilder& Builder) const
{
    if (UseProjectFile)
        return AddExpanded(*this, Builder, "", "Project File", ProjectFile);
    return std::all_of(Assemblies.begin(), Assemblies.end(), [&](const std::string& Assembly) {
        return AddOptional(*this, Builder, "", "Assembly", Assembly);
    });
}

bool TQXNUnitAction::BeforeExecute(ICommandLineBuilder& Builder)
{
    const bool Result = TQXExecuteAbstractAction::BeforeExecute(Builder);
    FNoTestsRun = false;
    FRefusedSwitch = false;
    return Result;
}

void TQXNUnitAction::OnStdOutData(IQXProcess& Process, std::string_view Data)
{
    TQXExecuteAbstractAction::OnStdOutData(Process, Data);
    if (FailIfNoTests && Data.find("Tests run: 0") != std::string_view::npos)
        FNoTestsRun = true;
    if (Data.starts_with("File type not known: /"))
        FRefusedSwitch = true;
}

bool TQXNUnitAction::InterpretResult(int ExitCode)
{
    if (ExitCode != 0)
        return false;
    const bool IsEmptyRun = FailIfNoTests && FNoTestsRun;
    if (IsEmptyRun)
        SendMessage("No tests run");
    return !IsEmptyRun;
}

void TQXNUnitAction::OnFailure(int ExitCode)
{
    TQXExecuteAbstractAction::OnFailure(ExitCode);
    if (FRefusedSwitch)
        SendMessage("NUnit takes \"/\" for the begin of a path here: a line of Assemblies passes a switch to it, as "
                    "-nologo or -xml=TestResult.xml");
}

bool TQXNUnitAction::Validate(IQXActionValidationError& Errors)
{
    const bool HasTool =
        RequireTool(Errors, GetExecutable(),
                    {"NUnit Options", "Path to nunit-console.exe not defined, please check Tools->Options"},
                    {"Options", "Path to nunit-console.exe not correct, please check Tools->Options"});
    const TQXRequirement Input =
        UseProjectFile ? TQXRequirement(ProjectFile, "Project File", "Project file has not been set")
                       : TQXRequirement(!Assemblies.IsEmpty(), "Assemblies", "No assemblies have been specified");
    return Require(Errors, {Input}) && HasTool;
}
