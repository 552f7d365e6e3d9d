// What happens in a run, as values. Writers turn them into text, JSON or annotations.
#pragma once

#include "host/QXAction.h"

#include <array>
#include <optional>
#include <string_view>
#include <variant>

enum class TActionResult { Success, Failure, Skipped, Terminated, Planned };
/// HostError: a file of the host's is wrong; programs that read the log see a failure.
enum class TRunResult { Success, Failure, Invalid, Terminated, HostError };
enum class TSeverity { Error, Warning };

// An event is an aggregate of numbers, texts and enumerations. Name is what programs know it by. Members names all
// of its members in their order: it is the one place from which filters find the texts to be cleaned and JSON its
// members; a count that differs does not compile. A member without a name is for the writers of this program alone.
// Texts live as long as the event is handled. Index is the position of an action in the project file, from 1, and 0
// for no action.

template <std::size_t Count> using TEventMembers = std::array<std::string_view, Count>;

/// Something is wrong with the host's own affairs: its command line, or the files that it reads. Of the place what is
/// known.
template <TSeverity Severity> struct THostEvent
{
    static constexpr std::string_view Name = Severity == TSeverity::Error ? "host-error" : "host-warning";
    static constexpr TEventMembers<4> Members = {"message", "file", "line", "column"};
    std::string_view Message;
    std::optional<std::string_view> File; ///< as the user named it, from the folder in which the program was started
    std::optional<int> Line;
    std::optional<int> Column;
};
using THostErrorEvent = THostEvent<TSeverity::Error>;
using THostWarningEvent = THostEvent<TSeverity::Warning>;

struct TRunStartedEvent
{
    static constexpr std::string_view Name = "run-started";
    static constexpr TEventMembers<2> Members = {"project", "actions"};
    std::string_view Project;
    int Actions = 0;
};

struct TValidationErrorEvent
{
    static constexpr std::string_view Name = "validation-error";
    static constexpr TEventMembers<8> Members = {"index", "type", "name", "label", "message", "file", "line", "column"};
    int Index = 0;
    std::string_view Type;
    std::string_view Action;
    std::string_view Label;
    std::string_view Message;
    std::string_view File; ///< the place of the action's table; the file as in a THostEvent
    int Line = 0;
    int Column = 0;
};

struct TActionStartedEvent
{
    static constexpr std::string_view Name = "action-started";
    static constexpr TEventMembers<3> Members = {"index", "type", "name"};
    int Index = 0;
    std::string_view Type;
    std::string_view Action;
};

struct TMessageEvent
{
    static constexpr std::string_view Name = "message";
    static constexpr TEventMembers<2> Members = {"index", "text"};
    int Index = 0;
    std::string_view Text;
};

struct TExpansionErrorEvent
{
    static constexpr std::string_view Name = "expansion-error";
    static constexpr TEventMembers<4> Members = {"index", "label", "text", "reason"};
    int Index = 0;
    std::string_view Label;
    std::string_view Text;
    std::string_view Reason;
};

struct TScriptErrorEvent
{
    static constexpr std::string_view Name = "script-error";
    static constexpr TEventMembers<4> Members = {"index", "script", "line", "reason"};
    int Index = 0;
    std::string_view Script;
    std::optional<int> Line; ///< of the script, where one is to blame
    std::string_view Reason;
};

/// A process that starts, or under a dry run would.
struct TProcessStartedEvent
{
    static constexpr std::string_view Name = "process-started";
    static constexpr TEventMembers<6> Members = {"index",     "executable", "folder",
                                                 "arguments", "dry_run",    "response_file"};
    int Index = 0;
    std::string_view Executable;
    std::string_view Folder;
    std::string_view Arguments;
    bool DryRun = false;
    std::optional<std::string_view> ResponseFile; ///< under a dry run: the text of the file that an argument names
};

struct TOutputEvent
{
    static constexpr std::string_view Name = "output";
    static constexpr TEventMembers<4> Members = {"index", "stream", "text", ""};
    int Index = 0;
    TQXOutputStream Stream = TQXOutputStream::StdOut;
    std::string_view Text;
    std::optional<TSeverity> Severity; ///< of a line that reports something; a TDiagnosticEvent follows
};

/// What the line of the TOutputEvent before it reports. Of the place what the tool says.
struct TDiagnosticEvent
{
    static constexpr std::string_view Name = "diagnostic";
    static constexpr TEventMembers<7> Members = {"index", "severity", "file", "line", "column", "code", "message"};
    int Index = 0;
    TSeverity Severity = TSeverity::Error;
    std::optional<std::string_view> File;
    std::optional<int> Line;
    std::optional<int> Column;
    std::string_view Code;
    std::string_view Message;
};

/// How a process ended: by itself, by a signal, or for its time limit.
struct TProcessEndedEvent
{
    static constexpr std::string_view Name = "process-ended";
    static constexpr TEventMembers<4> Members = {"index", "exit_code", "signal", "timed_out"};
    int Index = 0;
    std::optional<int> ExitCode;
    std::optional<std::string_view> Signal;
    bool TimedOut = false;
};

struct TActionEndedEvent
{
    static constexpr std::string_view Name = "action-ended";
    static constexpr TEventMembers<5> Members = {"index", "", "result", "seconds", "reason"};
    int Index = 0;
    std::string_view Action;
    TActionResult Result = TActionResult::Success;
    double Seconds = 0;
    std::optional<std::string_view> Reason; ///< why it was skipped
};

struct TRunEndedEvent
{
    static constexpr std::string_view Name = "run-ended";
    static constexpr TEventMembers<6> Members = {"result", "succeeded", "failed", "skipped", "seconds", ""};
    TRunResult Result = TRunResult::Success;
    int Succeeded = 0;
    int Failed = 0;
    int Skipped = 0;
    double Seconds = 0;
    bool DryRun = false; ///< what succeeded is planned
};

/// Comes about once a second while a process runs. Programs do not see it.
struct TTickEvent
{
    static constexpr std::string_view Name = "";
    static constexpr TEventMembers<0> Members = {};
};

using TRunEvent =
    std::variant<THostErrorEvent, THostWarningEvent, TRunStartedEvent, TValidationErrorEvent, TActionStartedEvent,
                 TMessageEvent, TExpansionErrorEvent, TScriptErrorEvent, TProcessStartedEvent, TOutputEvent,
                 TDiagnosticEvent, TProcessEndedEvent, TActionEndedEvent, TRunEndedEvent, TTickEvent>;

/// Receives the events of one run in their order. Behind TCleanEvents texts are valid UTF-8 and hold no secret.
class IRunEvents
{
public:
    virtual ~IRunEvents() = default;
    virtual void Handle(const TRunEvent& Event) = 0;
};
