// What happens in a run, as events. Writers turn them into text, JSON or annotations.
#pragma once

#include "host/QXAction.h"

#include <optional>
#include <string>
#include <string_view>

enum class TActionResult { Success, Failure, Skipped, Terminated };
enum class TRunResult { Success, Failure, Invalid, Terminated };

/// Which action an event is about. Index counts from 1, the position in the project file.
struct TActionIdentity
{
    int Index = 0;
    std::string Type;
    std::string Name;
};

/// A process that starts, or under a dry run would.
struct TProcessStartEvent
{
    std::string Executable;
    std::string Folder;
    std::string Arguments;
    bool DryRun = false;
    std::optional<std::string> ResponseFile; ///< under a dry run: the text of the file that an argument names
};

/// How it ended: by itself, by a signal, or for its time limit.
struct TProcessEndEvent
{
    int ExitCode = 0;
    std::string Signal;
    bool TimedOut = false;
};

struct TRunTotals
{
    int Succeeded = 0;
    int Failed = 0;
    int Skipped = 0;
    double Seconds = 0;
};

/// Receives the events of one run in their order. Index 0 stands for no action. Texts are valid UTF-8 and
/// hold no secret.
class IRunEvents
{
public:
    virtual ~IRunEvents() = default;
    virtual void RunStarted(std::string_view Project, int Actions) = 0;
    virtual void ValidationError(const TActionIdentity& Action, std::string_view Label, std::string_view Message) = 0;
    virtual void ActionStarted(const TActionIdentity& Action) = 0;
    virtual void Message(int Index, std::string_view Text) = 0;
    virtual void ExpansionError(int Index, std::string_view Label, std::string_view Text, std::string_view Reason) = 0;
    virtual void ScriptError(int Index, std::string_view Script, int Line, std::string_view Reason) = 0;
    virtual void ProcessStarted(int Index, const TProcessStartEvent& Process) = 0;
    virtual void Output(int Index, TQXOutputStream Stream, std::string_view Line) = 0;
    virtual void ProcessEnded(int Index, const TProcessEndEvent& End) = 0;
    /// Reason says why an action was skipped.
    virtual void ActionEnded(const TActionIdentity& Action, TActionResult Result, double Seconds,
                             std::string_view Reason) = 0;
    virtual void RunEnded(TRunResult Result, const TRunTotals& Totals) = 0;
    /// Called about once a second while a process runs.
    virtual void Tick() {}
};
