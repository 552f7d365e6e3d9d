#pragma once

#include "host/QXAction.h"
#include "host/QXStringList.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

class IQXProcess;

/// Receives a process's output, line by line while it runs.
class IQXProcessEvents
{
public:
    virtual ~IQXProcessEvents() = default;
    virtual void OnStdOutData(IQXProcess& Process, std::string_view Data) = 0;
    virtual void OnStdErrData(IQXProcess& Process, std::string_view Data) = 0;
};

/// A process could not be started; the message names the executable and the reason.
class EQXProcessError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A run of an outside tool, without a shell. Every run is shown in the log; under a dry run it is only
/// shown and counts as exit code 0.
class IQXProcess
{
public:
    virtual ~IQXProcess() = default;
    virtual void SetExecutable(std::string Executable) = 0;
    [[nodiscard]] virtual std::string GetExecutable() const = 0;
    /// An empty folder is the current one.
    virtual void SetStartDirectory(std::string Folder) = 0;
    [[nodiscard]] virtual std::string GetStartDirectory() const = 0;
    /// The arguments as one text, in the quoting of the Microsoft C run time.
    virtual void SetArguments(std::string Arguments) = 0;
    [[nodiscard]] virtual std::string GetArguments() const = 0;
    /// Who gets the output; null: nobody, and it is dropped.
    virtual void SetEvents(IQXProcessEvents* Events) = 0;

    /// A: the process belongs to a larger step and its output is part of that step's log.
    virtual void SetOptionA(bool Value) = 0;
    /// B: the process gets a console window of its own (Windows).
    virtual void SetOptionB(bool Value) = 0;
    /// C: the process's window, if it has one, stays hidden (Windows).
    virtual void SetOptionC(bool Value) = 0;
    /// D: Run waits for the end of the process.
    virtual void SetOptionD(bool Value) = 0;
    /// E: the process's children end with it when the run is ended.
    virtual void SetOptionE(bool Value) = 0;

    /// Runs the process to its end and gives the exit code; 128 and the signal's number for one that a
    /// signal ended, 124 for one that passed its time limit. Throws EQXProcessError if it does not start.
    [[nodiscard]] virtual int Run() = 0;
    /// The same, with standard output and error appended to Lines instead of going to the log.
    [[nodiscard]] virtual int RunCaptured(TStringList& Lines) = 0;
};

/// A new process object, run on behalf of the action that the host runs at the moment.
[[nodiscard]] std::unique_ptr<IQXProcess> CreateQXProcess();
