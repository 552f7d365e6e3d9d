#pragma once

#include "host/QXAction.h"
#include "host/QXCommandLineBuilder.h"
#include "host/QXProcess.h"

#include <string>
#include <string_view>
#include <vector>

/// Base of every action that runs an outside tool. Execute holds the run flow; actions override its
/// steps and never start their tool themselves. The first step that returns false ends the action as
/// failed, and later steps do not run.
class TQXExecuteAbstractAction : public TQXAction, public IQXProcessEvents
{
public:
    ~TQXExecuteAbstractAction() override;

    [[nodiscard]] bool Execute() override;

    /// Adds the tool's arguments to an empty builder.
    [[nodiscard]] virtual bool GetCommandLine(ICommandLineBuilder& Builder) = 0;
    /// The tool's file.
    [[nodiscard]] virtual std::string GetExecutable() = 0;
    /// The folder in which the tool starts; empty: the current one.
    [[nodiscard]] virtual std::string GetStartingDir(const std::string& Exe);
    [[nodiscard]] virtual bool BeforeGetCommandLine();
    [[nodiscard]] virtual bool AfterGetCommandLine();
    /// The last step before the tool starts; the builder is complete.
    [[nodiscard]] virtual bool BeforeExecute(ICommandLineBuilder& Builder);
    /// Whether the tool's exit code means success; 0 does.
    [[nodiscard]] virtual bool InterpretResult(int ExitCode);
    /// What belongs to the work behind a tool that succeeded, or behind one that a dry run has shown. False, which the
    /// log has been told of, makes a failure of it.
    [[nodiscard]] virtual bool AfterExecute();
    virtual void OnSuccess(int ExitCode);
    virtual void OnFailure(int ExitCode);
    /// The files that the tool makes as far as the action knows them: a dry run counts them as there, and asks for
    /// nothing else of what comes after the start.
    [[nodiscard]] virtual std::vector<std::string> GetOutputs();
    /// Reports that no file lies at Exe.
    virtual void OnExeNotFound(const std::string& Exe);
    /// Puts a line of the tool's output into the log.
    virtual void OnProcessOutput(IQXProcess& Process, TQXOutputStream Stream, std::string_view Data);
    void OnStdErrData(IQXProcess& Process, std::string_view Data) override;
    void OnStdOutData(IQXProcess& Process, std::string_view Data) override;

protected:
    /// The tool's output goes to the log.
    bool LogOutput = false;
    /// The tool's window, if it has one, stays hidden.
    bool HideWindow = false;
};
