#include "platform/ProcessSystem.h"
#include "platform/Processes.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <unistd.h>

namespace
{
constexpr int SignalExitCode = 128;
/// Within these times, in seconds, somebody has to take notice of a request, and the program to end for an urgent one.
constexpr unsigned Patience = 5;
constexpr unsigned UrgentPatience = 1;
/// A closing terminal sends its signal, and so does the shell: a second one within this time is the same request.
constexpr std::int64_t SameRequest = 100'000'000;

std::atomic<int> FirstSignal = 0;
std::atomic<bool> Noticed = false;
std::atomic<bool> Urgent = false;
std::atomic<std::int64_t> CaughtAt = 0; ///< when the first signal came, in nanoseconds; 0: none did
static_assert(std::atomic<std::int64_t>::is_always_lock_free, "the signal handler must not wait");

std::int64_t Now()
{
    timespec Time{};
    clock_gettime(CLOCK_MONOTONIC, &Time);
    return Time.tv_sec * 1'000'000'000 + Time.tv_nsec;
}

int Meaning(int Signal)
{
    return Signal == SIGHUP ? SIGTERM : Signal;
}

void EndOnSignal(int Signal)
{
    _exit(SignalExitCode + Meaning(Signal));
}

void RequestOnSignal(int Signal)
{
    const int Error = errno;
    Termination::Request(Meaning(Signal));
    std::int64_t None = 0;
    if (CaughtAt.compare_exchange_strong(None, Now()))
        alarm(Patience);
    else if (!Urgent && Now() - CaughtAt > SameRequest)
    {
        Urgent = true;
        alarm(UrgentPatience);
    }
    errno = Error;
}

void OnAlarm(int)
{
    if (Urgent || !Noticed)
        ProcessSystem::TWatcher::EndProgram(SignalExitCode + FirstSignal);
}

void Catch(int Signal, void (*Handler)(int))
{
    struct sigaction Action
    {
    };
    Action.sa_handler = Handler;
    Action.sa_flags = SA_RESTART;
    sigemptyset(&Action.sa_mask);
    sigaction(Signal, &Action, nullptr);
}

bool IsIgnored(int Signal)
{
    struct sigaction Action
    {
    };
    return sigaction(Signal, nullptr, &Action) == 0 && Action.sa_handler == SIG_IGN;
}

void CatchAll(void (*Handler)(int))
{
    for (const int Signal : {SIGINT, SIGQUIT, SIGTERM})
        Catch(Signal, Handler);
    if (!IsIgnored(SIGHUP)) // nohup
        Catch(SIGHUP, Handler);
    Catch(SIGPIPE, SIG_IGN);
    Catch(SIGXFSZ, SIG_IGN); // a file beyond its size limit is an error like a full disk
}
} // namespace

namespace Termination
{
void EndOnSignals()
{
    CatchAll(EndOnSignal);
}

void CatchSignals()
{
    Catch(SIGALRM, OnAlarm);
    CatchAll(RequestOnSignal);
}

void Request(int Signal)
{
    int None = 0;
    FirstSignal.compare_exchange_strong(None, Signal);
    ProcessLoop::Wake();
}

int Requested()
{
    const int Signal = FirstSignal;
    if (Signal != 0)
        Noticed = true;
    return Signal;
}

bool IsUrgent()
{
    return Urgent;
}

void Reset()
{
    alarm(0);
    FirstSignal = 0;
    CaughtAt = 0;
    Noticed = Urgent = false;
}
} // namespace Termination
