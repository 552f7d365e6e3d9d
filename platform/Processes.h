// Runs an outside program and delivers its output line by line.
#pragma once

#include <chrono>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What is to be started.
struct TProcessStart
{
    std::string Executable;
    std::string Arguments;                                        ///< one text, see CommandLines
    std::string Folder;                                           ///< empty: the current one
    std::vector<std::pair<std::string, std::string>> Environment; ///< set besides what is inherited
    std::chrono::milliseconds TimeLimit{0};                       ///< 0: none
    std::chrono::milliseconds TickInterval{0};                    ///< 0: OnTick is not called
    bool HideWindow = false;                                      ///< Windows only
};

/// Receives what happens while a process runs. A line comes without its end and may be of any bytes; one
/// of more than a megabyte comes in pieces.
class IProcessListener
{
public:
    virtual ~IProcessListener() = default;
    virtual void OnStdOutLine(std::string_view Line) = 0;
    virtual void OnStdErrLine(std::string_view Line) = 0;
    virtual void OnTick() {}
    /// Where a line that is too long is best cut: at Length or before it, 0 for nowhere.
    [[nodiscard]] virtual std::size_t PlaceToCut(std::string_view /*Line*/, std::size_t Length) const { return Length; }
};

/// How a process ended.
struct TProcessEnd
{
    int ExitCode = 0;
    std::string Signal; ///< the name of the signal that ended it, "SIGKILL"; empty: it exited
    int SignalNumber = 0;
    bool TimedOut = false;   ///< it and its children were ended for their time limit
    bool Terminated = false; ///< the same for a termination request
};

/// The process could not be started; the message names the executable or the folder and the reason.
class EProcessStartError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Runs a process in a process group of its own to its end. Standard input is empty. An exception that
/// leaves the listener ends the process and its children and comes out of here. When the process has ended,
/// what stands in its pipes is delivered; a child that keeps them open is waited for one second at most. Past the
/// time limit, or when termination is requested, the process and all its descendants are asked to end and
/// soon after made to.
[[nodiscard]] TProcessEnd RunProcess(const TProcessStart& Start, IProcessListener& Listener);

/// Whether the file is a .NET assembly, told by its header.
[[nodiscard]] bool IsDotNetAssembly(const std::string& FileName);
/// The start of a .NET assembly through the program that runs it where the system does not; any other start as it is.
[[nodiscard]] TProcessStart ThroughRuntime(TProcessStart Start);

/// Requests from outside to end the run.
namespace Termination
{
/// From now on SIGINT, SIGQUIT, SIGTERM and SIGHUP end the program at once, with 128 and the signal's number as exit
/// code; SIGHUP counts as SIGTERM. Writes to a closed pipe fail instead of ending the program.
void EndOnSignals();
/// The same, but turns these signals (Ctrl+C and Ctrl+Break) into requests from now on. A second signal makes the
/// request urgent. Who takes no notice of a request for some seconds, or of an urgent one for a second, is ended as a
/// killed program is, and the processes that it runs as well.
void CatchSignals();
/// Requests the end as that signal would; a running RunProcess returns soon. May be called from anywhere.
void Request(int Signal);
/// The signal of the first request, 0 while there was none.
[[nodiscard]] int Requested();
/// Whether nothing is to be waited for any longer, neither processes that were asked to end nor readers.
[[nodiscard]] bool IsUrgent();
/// Forgets a request, for tests.
void Reset();
} // namespace Termination
