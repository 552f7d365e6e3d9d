#include "platform/ProcessSystem.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <new>
#include <sys/mman.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#if defined(__linux__)
#include <sys/prctl.h>
#endif

namespace
{
/// In the environment of every process that a tool starts: what tells them from others when the program that
/// adopted orphans has gone.
constexpr const char* MarkVariable = "QUEXLEY_RUN";

/// What program and watcher share.
struct TShared
{
    std::atomic<bool> IsArmed = false;
    std::atomic<bool> IsUrgent = false; ///< nobody is asked to end
    std::atomic<int> Root = 0;
    std::atomic<std::uint64_t> Begin = 0;
};
static_assert(std::atomic<std::uint64_t>::is_always_lock_free, "two processes share it");

TShared* Shared = nullptr;
std::atomic<int> WatcherProcess = 0;
std::atomic<int> PipeEnd = -1; ///< closed by the system when the program ends, however

TShared* MakeShared()
{
    void* Page = mmap(nullptr, sizeof(TShared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    return Page == MAP_FAILED ? nullptr : new (Page) TShared;
}

/// Asks the processes of the tree to end and makes those that do not.
void EndTree(const ProcessSystem::TProcessTree& Tree)
{
    using namespace std::chrono;
    const auto Begin = steady_clock::now();
    if (!Shared->IsUrgent)
        Tree.Ask();
    for (milliseconds Waited{0}; Waited < ProcessSystem::AskGrace + ProcessSystem::KillGrace && Tree.IsAlive();
         Waited = duration_cast<milliseconds>(steady_clock::now() - Begin))
    {
        if (Shared->IsUrgent || Waited > ProcessSystem::AskGrace)
            Tree.Kill();
        std::this_thread::sleep_for(ProcessSystem::TreePoll);
    }
}

/// Leaves the terminal and whatever else the program has open, so that nobody waits for the watcher.
void Detach(int ReadEnd)
{
    sigset_t All;
    sigfillset(&All);
    sigprocmask(SIG_BLOCK, &All, nullptr);
    setsid();
#if defined(__linux__)
    prctl(PR_SET_NAME, "qx-watcher"); // who kills all programs of our name means the tools as well
#endif
    dup2(ReadEnd, 0);
    close_range(1, ~0U, 0);
    if (chdir("/") != 0)
        return; // it keeps a folder in use, no more
}

void WaitForEndOfProgram()
{
    char Byte = 0;
    while (read(0, &Byte, 1) < 0 && errno == EINTR)
        continue;
}
} // namespace

namespace ProcessSystem
{
TWatcher::TWatcher()
{
    const std::string Mark = std::to_string(getpid()) + "-" + std::to_string(TProcessTree().FBegin);
    std::array<int, 2> Ends{};
    if ((Shared = MakeShared()) == nullptr || pipe2(Ends.data(), O_CLOEXEC) != 0)
        return;
    setenv(MarkVariable, Mark.c_str(), 1); // NOLINT(concurrency-mt-unsafe): before the first process starts
    TProcessTree Tree;
    const pid_t Child = fork();
    if (Child == 0)
    {
        Detach(Ends[0]);
        WaitForEndOfProgram();
        Tree.FBegin = Shared->Begin;
        Tree.FRoot = Shared->Root;
        Tree.FMark = std::string(MarkVariable) + "=" + Mark + std::string(1, '\0');
        if (Shared->IsArmed)
            EndTree(Tree);
        _exit(0);
    }
    close(Ends[0]);
    PipeEnd = Ends[1];
    WatcherProcess = std::max(Child, 0);
}

TWatcher::~TWatcher()
{
    Watch(nullptr);
    close(PipeEnd.exchange(-1));
    if (const int Process = WatcherProcess.exchange(0); Process != 0)
        waitpid(Process, nullptr, 0);
}

void TWatcher::Watch(const TProcessTree* Tree)
{
    if (Shared == nullptr)
        return;
    if (Tree != nullptr)
    {
        Shared->Begin = Tree->FBegin;
        Shared->Root = Tree->FRoot;
    }
    Shared->IsArmed = Tree != nullptr;
}

int TWatcher::Process()
{
    return WatcherProcess;
}

void TWatcher::EndProgram(int ExitCode)
{
    if (Shared != nullptr)
        Shared->IsUrgent = true;
    if (PipeEnd >= 0)
        close(PipeEnd);
    if (WatcherProcess > 0)
        waitpid(WatcherProcess, nullptr, 0);
    _exit(ExitCode);
}
} // namespace ProcessSystem
