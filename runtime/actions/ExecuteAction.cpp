#include "host/QXExecuteAction.h"

#include "host/QXFiles.h"
#include "runtime/Runtime.h"
#include "runtime/actions/PlannedFiles.h"
#include "runtime/actions/Process.h"
#include "runtime/actions/RunContext.h"

namespace
{
/// Adds what the project says of the tool's arguments.
bool AddProjectArguments(const TCustomQXAction& Action, ICommandLineBuilder& Builder)
{
    const TRunContext* Running = TQXRuntime::RunningAction();
    std::string Text;
    if (!Running || Running->Run().Arguments.empty())
        return true;
    if (!Action.TryExpandExpression("arguments", Running->Run().Arguments, Text, false))
        return false;
    QXAddFreeText(Builder, Text);
    return true;
}

/// Runs the prepared process and has the action judge how it ended.
bool RunTool(TQXExecuteAbstractAction& Action, TQXProcess& Process)
try
{
    const int ExitCode = Process.Run();
    // A tool that was cut off has no result of its own to be interpreted.
    const bool WasCutOff = Process.End().TimedOut || Process.End().Terminated;
    if (TCustomQXAction::IsDryRun())
    {
        const std::vector<std::string> Files = Action.GetOutputs();
        for (const std::string& File : Files)
            QXFiles().WillMake(File);
        if (Files.empty())
            TQXRuntime::RunningAction()->Run().Plan->NoteUnknownFiles();
        return !WasCutOff && Action.AfterExecute();
    }
    const bool Succeeded = !WasCutOff && Action.InterpretResult(ExitCode) && Action.AfterExecute();
    Succeeded ? Action.OnSuccess(ExitCode) : Action.OnFailure(ExitCode);
    return Succeeded;
}
catch (const EQXProcessError& Error)
{
    Action.SendMessage(Error.what());
    return false;
}
} // namespace

TQXExecuteAbstractAction::~TQXExecuteAbstractAction() = default;

bool TQXExecuteAbstractAction::Execute()
{
    if (!BeforeGetCommandLine())
        return false;
    const auto Builder = CreateCommandLineBuilder();
    if (!GetCommandLine(*Builder) || !AfterGetCommandLine() || !AddProjectArguments(*this, *Builder))
        return false;
    const std::string Exe = GetExecutable();
    if (Exe.empty() || !QXFiles().FileExists(Exe))
    {
        OnExeNotFound(Exe);
        return false;
    }
    const std::string Folder = GetStartingDir(Exe);
    if (!Folder.empty() && !QXFiles().FolderExists(Folder))
    {
        SendMessage("The starting directory does not exist : " + Folder);
        return false;
    }
    if (!BeforeExecute(*Builder))
        return false;
    TQXProcess Process;
    Process.SetExecutable(Exe);
    Process.SetStartDirectory(Folder);
    Process.SetArguments(Builder->GetCommandLineText());
    Process.SetEvents(this);
    Process.SetOptionC(HideWindow);
    return RunTool(*this, Process);
}

std::string TQXExecuteAbstractAction::GetStartingDir(const std::string&)
{
    return {};
}

bool TQXExecuteAbstractAction::BeforeGetCommandLine()
{
    return true;
}

bool TQXExecuteAbstractAction::AfterGetCommandLine()
{
    return true;
}

bool TQXExecuteAbstractAction::BeforeExecute(ICommandLineBuilder&)
{
    return true;
}

bool TQXExecuteAbstractAction::InterpretResult(int ExitCode)
{
    return ExitCode == 0;
}

bool TQXExecuteAbstractAction::AfterExecute()
{
    return true;
}

void TQXExecuteAbstractAction::OnSuccess(int) {}

void TQXExecuteAbstractAction::OnFailure(int) {}

std::vector<std::string> TQXExecuteAbstractAction::GetOutputs()
{
    return {};
}

void TQXExecuteAbstractAction::OnExeNotFound(const std::string& Exe)
{
    SendMessage("The executable was not found : " + Exe);
}

void TQXExecuteAbstractAction::OnProcessOutput(IQXProcess&, TQXOutputStream Stream, std::string_view Data)
{
    if (LogOutput && Host())
        Host()->SendOutput(Stream, Data);
}

void TQXExecuteAbstractAction::OnStdErrData(IQXProcess& Process, std::string_view Data)
{
    OnProcessOutput(Process, TQXOutputStream::StdErr, Data);
}

void TQXExecuteAbstractAction::OnStdOutData(IQXProcess& Process, std::string_view Data)
{
    OnProcessOutput(Process, TQXOutputStream::StdOut, Data);
}
