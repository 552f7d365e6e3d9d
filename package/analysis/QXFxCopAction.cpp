#include "package/analysis/QXFxCopAction.h"

#include "host/QXFiles.h"
#include "host/QXProcess.h"
#include "host/QXStringList.h"
#include "package/analysis/QXFxCopOptions.h"
#include "package/plugin/QXActionHelpers.h"
#include "platform/Paths.h"
#include "platform/Text.h"

namespace
{
struct TExitBit
{
    unsigned Bit;
    const char* Meaning;
};
constexpr TExitBit ExitBits[] = {
    {0x1, "No analysis performed"},
    {0x2, "An exception occurred"},
    {0x4, "Could not load the project file"},
    {0x8, "Could not load an assembly"},
    {0x10, "Could not load a rules library"},
    {0x20, "Could not import a report"},
    {0x40, "Could not create the output"},
    {0x80, "Invalid command-line"},
    {0x100, "Initialization error"},
    {0x200, "Assembly reference error"},
    {0x1000000, "Unknown error"},
};

/// What validation asks for, and how the log is told.
struct TCheck
{
    bool Holds;
    std::string_view Label;
    std::string_view Message;
    std::string_view LogText;
};

std::string Executable()
{
    const IQXFxCopOptions* Options = FxCopOptions();
    return Options ? Options->GetFxCopExe() : "";
}

std::string WithToolFolder(const std::string& Text)
{
    const IQXFxCopOptions* Options = FxCopOptions();
    return Options ? Options->ReplaceFxCopDir(Text) : Text;
}

/// Collects the tool's arguments.
class TParams
{
public:
    explicit TParams(const TCustomQXAction& Action) : FAction(Action) {}

    void Add(std::string_view Text) { FText.append(Text).append(" "); }
    void AddValue(std::string_view Switch, const std::string& Value)
    {
        if (!Value.empty())
            Add(std::string(Switch) + QuotePath(FAction.ExpandExpression(WithToolFolder(Value), true)));
    }
    void AddList(std::string_view Switch, const std::string& CommaText)
    {
        TStringList Items;
        Items.SetCommaText(CommaText);
        for (const std::string& Item : Items)
            AddValue(Switch, Item);
    }
    void AddFlag(bool IsSet, std::string_view Switch)
    {
        if (IsSet)
            Add(Switch);
    }
    [[nodiscard]] std::string Text() const { return std::string(Texts::Trim(FText)); }

private:
    const TCustomQXAction& FAction;
    std::string FText;
};
} // namespace

TQXFxCopAction::TQXFxCopAction()
{
    PublishInputs();
    PublishOutputs();
}

void TQXFxCopAction::PublishInputs()
{
    Publish("ProjectFile", ProjectFile, "FxCop project to read settings from")
        .File()
        .Required("%ProjectDir%/Acme.FxCop")
        .Alias("FxCop Project File")
        .Help("The FxCop Project File to read settings from. Can be combined with Target Assemblies. If not set, both "
              "Targets and Rules must be set.");
    Publish("Targets", Targets, "Assemblies or folders to check")
        .List(',')
        .Alias("Target Assemblies")
        .Help("Assemblies or folders containing assemblies to check with FxCop.");
    Publish("Rules", Rules, "Rule assemblies or folders")
        .List(',')
        .Alias("Rule Assemblies")
        .Help("Assemblies or folders with assemblies containing FxCop rules.");
    Publish("Directories", Directories, "Folders of assemblies that the targets need")
        .List(',')
        .Alias("Target Dependency Folders")
        .Help("Directories where assemblies required by the targets are located.");
}

void TQXFxCopAction::PublishOutputs()
{
    Publish("OutputFilename", OutputFilename, "Report file")
        .File()
        .Alias("Output Filename")
        .Help("The file to save the output to. If not specified, Capture Output must be set to true.");
    Publish("ImportReports", ImportReports, "Reports or projects to import")
        .List(',')
        .Alias("Imported Reports and Projects")
        .Help("Reports and/or FxCop Projects to import in this run.");
    Publish("PlatformFolder", PlatformFolder, "Folder of the mscorlib.dll that the targets were built with")
        .Folder()
        .Alias("MsCorLib Folder")
        .Help("The location of the version of mscorlib.dll used to build the target assemblies. Not needed if the "
              "target assemblies use the same mscorlib as FxCop.");
    Publish("AnalyzeTypes", AnalyzeTypes, "Types and members to analyse; none: all")
        .List(',')
        .Alias("Types To Analyze")
        .Help("List of types and members that should be analyzed. If empty, all types and members are analyzed.");
    Publish("TransformationXSL", TransformationXSL, "XSL file for the output; one that is not there is left out")
        .File()
        .Alias("Output XSL Transform FIle")
        .Help("XSL or XSLT file used to transform the output to another format.");
    Publish("CaptureOutput", CaptureOutput, "Capture the output and log it")
        .Alias("Capture Output")
        .Help("Indicates whether the output should be captured or not. If this property is false, Output Filename must "
              "be set to a valid filename.");
    Publish("SummaryReport", SummaryReport, "Add a summary to the report")
        .Alias("Include Summary In Report")
        .Help("Indicates whether a sumary report should be added to the output.");
    Publish("VerboseReport", VerboseReport, "Verbose report")
        .Alias("Verbose Report")
        .Help("Indicates whether the output is verbose or not.");
    Publish("UpdateProjectFile", UpdateProjectFile, "Write the results back to the project file")
        .Alias("Update Project File")
        .Help("Indicates whether the project file should be updated with the result of this run or not. Only valid if "
              "Project Filename is set.");
}

bool TQXFxCopAction::Validate(IQXActionValidationError& Errors)
{
    return ExecuteValidate(&Errors);
}

bool TQXFxCopAction::ExecuteValidate(IQXActionValidationError* Errors) const
{
    const TCheck Checks[] = {
        {QXFiles().FileExists(Executable()), "FxCop Options", "FxCopCmd.exe not found",
         "FxCop not found! Please install and try again!"},
        {!OutputFilename.empty() || CaptureOutput, "OutputFilename",
         "Either OutputFilename or CaptureOutput must be set", "Either OutputFilename or CaptureOutput must be set!"},
        {!ProjectFile.empty() || (!Targets.empty() && !Rules.empty()), "ProjectFile",
         "Either ProjectFile or both Targets and Rules must be specified",
         "Either ProjectFile or both Targets and Rules must be specified!"},
    };
    bool Hold = true;
    for (const TCheck& Check : Checks)
    {
        if (Check.Holds)
            continue;
        Hold = false;
        Errors ? Errors->AddError(Check.Label, Check.Message) : SendMessage(Check.LogText);
    }
    return Hold;
}

std::string TQXFxCopAction::GetParams()
{
    StartDirectory = Paths::Folder(ExpandExpression(WithToolFolder(ProjectFile), true));
    TParams Params(*this);
    Params.AddValue("/p:", ProjectFile);
    Params.AddList("/f:", Targets);
    Params.AddList("/r:", Rules);
    Params.AddList("/directory:", Directories);
    Params.AddList("/i:", ImportReports);
    Params.AddValue("/o:", OutputFilename);
    Params.AddValue("/plat:", PlatformFolder);
    if (!AnalyzeTypes.empty())
        Params.Add("/t:" + ExpandExpression(AnalyzeTypes, true));
    if (QXFiles().FileExists(TransformationXSL))
        Params.AddValue("/cXsl:", TransformationXSL);
    Params.AddFlag(CaptureOutput, "/c");
    Params.AddFlag(SummaryReport, "/s");
    Params.AddFlag(VerboseReport, "/v");
    Params.AddFlag(UpdateProjectFile, "/u");
    return Params.Text();
}

bool TQXFxCopAction::Execute()
try
{
    const std::string Exe = Executable();
    if (!Exe.empty())
        return RunTool(Exe);
    SendMessage("FxCop executable not set in Tools->Options");
    return false;
}
catch (const EQXProcessError& Error)
{
    SendMessage(Error.what());
    return false;
}

bool TQXFxCopAction::RunTool(const std::string& Exe)
{
    const auto Process = CreateQXProcess();
    const std::string Params = GetParams();
    Process->SetExecutable(Exe);
    Process->SetStartDirectory(StartDirectory);
    Process->SetArguments(Params);
    Process->SetOptionA(true);
    Process->SetOptionC(true);
    TStringList Lines;
    const bool Succeeded = SendErrorMessage(Process->RunCaptured(Lines));
    if (!Succeeded || CaptureOutput)
        for (const std::string& Line : Lines)
            SendMessage(Line);
    if (IsDryRun() && !OutputFilename.empty())
        QXFiles().WillMake(ExpandExpression(WithToolFolder(OutputFilename), false));
    return Succeeded;
}

bool TQXFxCopAction::SendErrorMessage(int ExitCode) const
{
    bool HasHeading = false;
    for (const TExitBit& Exit : ExitBits)
    {
        if ((static_cast<unsigned>(ExitCode) & Exit.Bit) == 0)
            continue;
        if (!HasHeading)
            SendMessage("FXCOP ERROR(S):");
        HasHeading = true;
        SendMessage(Exit.Meaning);
    }
    return ExitCode == 0;
}
