#include "platform/ProcessSystem.h"
#include "platform/Processes.h"

#include <atomic>
#include <cerrno>
#include <csignal>

namespace
{
std::atomic<int> FirstSignal = 0;
static_assert(std::atomic<int>::is_always_lock_free, "the signal handler must not wait");

void OnSignal(int Signal)
{
    const int Error = errno;
    Termination::Request(Signal == SIGHUP ? SIGTERM : Signal);
    errno = Error;
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
} // namespace

namespace Termination
{
void CatchSignals()
{
    Catch(SIGINT, OnSignal);
    Catch(SIGTERM, OnSignal);
    if (!IsIgnored(SIGHUP)) // nohup
        Catch(SIGHUP, OnSignal);
    Catch(SIGPIPE, SIG_IGN);
    Catch(SIGXFSZ, SIG_IGN); // a file beyond its size limit is an error like a full disk
}

void Request(int Signal)
{
    int None = 0;
    FirstSignal.compare_exchange_strong(None, Signal);
    ProcessLoop::Wake();
}

int Requested()
{
    return FirstSignal;
}

void Reset()
{
    FirstSignal = 0;
}
} // namespace Termination
