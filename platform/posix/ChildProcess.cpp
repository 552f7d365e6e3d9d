#include "platform/ProcessSystem.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <uv.h>

namespace
{
/// What posix_spawn takes besides the file: how the child's streams, folder and signals are set up.
class TSpawnSettings
{
public:
    explicit TSpawnSettings(const ProcessSystem::TChildStart& Start)
    {
        posix_spawn_file_actions_init(&Actions);
        posix_spawn_file_actions_addopen(&Actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_adddup2(&Actions, Start.StdOut, STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&Actions, Start.StdErr, STDERR_FILENO);
        if (Start.Folder != nullptr)
            posix_spawn_file_actions_addchdir_np(&Actions, Start.Folder);
        // Also what our program was given and knows nothing of.
        posix_spawn_file_actions_addclosefrom_np(&Actions, STDERR_FILENO + 1);

        posix_spawnattr_init(&Attributes);
        posix_spawnattr_setflags(&Attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
        sigset_t Signals;
        sigemptyset(&Signals);
        posix_spawnattr_setsigmask(&Attributes, &Signals);
        sigfillset(&Signals);
        sigdelset(&Signals, SIGHUP); // stays ignored under nohup
        posix_spawnattr_setsigdefault(&Attributes, &Signals);
    }
    ~TSpawnSettings()
    {
        posix_spawn_file_actions_destroy(&Actions);
        posix_spawnattr_destroy(&Attributes);
    }
    TSpawnSettings(const TSpawnSettings&) = delete;
    TSpawnSettings& operator=(const TSpawnSettings&) = delete;

    posix_spawn_file_actions_t Actions{};
    posix_spawnattr_t Attributes{};
};
} // namespace

namespace ProcessSystem
{
// libuv 1.44 starts processes by fork, which copies our page tables for each of them: as much work again as the start
// itself. posix_spawn shares them, and the loop watches the child through a descriptor that stands for it.
struct TChildProcess::TImpl
{
    uv_poll_t Watch{};
    pid_t Process = 0;
    int Descriptor = -1;
    bool HasEnded = false;
    void* Owner = nullptr;
    TExited Exited = nullptr;

    void Reap()
    {
        int Status = 0;
        if (HasEnded || waitpid(Process, &Status, WNOHANG) != Process)
            return;
        HasEnded = true;
        uv_poll_stop(&Watch);
        if (WIFSIGNALED(Status))
            Exited(Owner, 0, WTERMSIG(Status));
        else
            Exited(Owner, WEXITSTATUS(Status), 0);
    }
};

TChildProcess::TChildProcess() : FImpl(std::make_unique<TImpl>()) {}

TChildProcess::~TChildProcess() = default;

std::string TChildProcess::Start(uv_loop_t* Loop, const TChildStart& Start, void* Owner, TExited Exited)
{
    const TSpawnSettings Settings(Start);
    char** Environment = Start.Environment != nullptr ? Start.Environment : environ;
    const int Error =
        posix_spawn(&FImpl->Process, Start.File, &Settings.Actions, &Settings.Attributes, Start.Arguments, Environment);
    if (Error == ENOENT) // the file itself was found
        return "the interpreter that it names is missing";
    if (Error != 0)
        return ErrorReason(Error);
    FImpl->Owner = Owner;
    FImpl->Exited = Exited;
    FImpl->Descriptor = static_cast<int>(syscall(SYS_pidfd_open, FImpl->Process, 0));
    if (FImpl->Descriptor < 0)
    {
        std::string Problem = ErrorReason(errno);
        kill(FImpl->Process, SIGKILL);
        waitpid(FImpl->Process, nullptr, 0);
        return Problem;
    }
    uv_poll_init(Loop, &FImpl->Watch, FImpl->Descriptor);
    FImpl->Watch.data = FImpl.get();
    uv_poll_start(&FImpl->Watch, UV_READABLE,
                  [](uv_poll_t* Watch, int, int) { static_cast<TImpl*>(Watch->data)->Reap(); });
    return {};
}

int TChildProcess::Process() const
{
    return FImpl->Process;
}

void TChildProcess::Look()
{
    FImpl->Reap();
}

void TChildProcess::Close()
{
    if (FImpl->Descriptor < 0)
        return;
    uv_close(reinterpret_cast<uv_handle_t*>(&FImpl->Watch), nullptr);
    close(FImpl->Descriptor);
    FImpl->Descriptor = -1;
}
} // namespace ProcessSystem
