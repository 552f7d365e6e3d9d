// Threads that only save time.
#pragma once

#include <csignal>
#include <system_error>
#include <thread>
#include <utility>

/// A thread that works, or none where the system has no room for one: it is not needed.
template <typename TWork> std::thread TryStartThread(TWork Work)
try
{
    return std::thread(std::move(Work));
}
catch (const std::system_error&)
{
    return {};
}

/// The same, and no signal is delivered to it.
template <typename TWork> std::thread StartQuietly(TWork Work)
{
    sigset_t All;
    sigset_t Old;
    ::sigfillset(&All);
    ::pthread_sigmask(SIG_SETMASK, &All, &Old);
    std::thread Thread = TryStartThread(std::move(Work));
    ::pthread_sigmask(SIG_SETMASK, &Old, nullptr);
    return Thread;
}
