#include "platform/Console.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>

namespace
{
/// Another program may have made the terminal that we share non-blocking.
void WaitUntilWritable()
{
    pollfd Descriptor{STDOUT_FILENO, POLLOUT, 0};
    ::poll(&Descriptor, 1, -1);
}
} // namespace

void Console::OpenMissingStreams()
{
    for (const int Descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(Descriptor, F_GETFD) < 0 && ::open("/dev/null", O_RDWR) != Descriptor)
            std::abort();
}

bool Console::IsTerminal()
{
    return ::isatty(STDOUT_FILENO) != 0;
}

int Console::Width()
{
    winsize Size{};
    return ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &Size) == 0 && Size.ws_col > 0 ? Size.ws_col : 80;
}

std::error_code Console::Write(std::string_view Bytes)
{
    while (!Bytes.empty())
    {
        const ssize_t Written = ::write(STDOUT_FILENO, Bytes.data(), Bytes.size());
        if (Written >= 0)
            Bytes.remove_prefix(static_cast<std::size_t>(Written));
        else if (errno == EAGAIN)
            WaitUntilWritable();
        else if (errno != EINTR)
            return {errno, std::generic_category()};
    }
    return {};
}

void Console::EndByClosedPipe()
{
    ::signal(SIGPIPE, SIG_DFL);
    sigset_t Signals;
    ::sigemptyset(&Signals);
    ::sigaddset(&Signals, SIGPIPE);
    ::sigprocmask(SIG_UNBLOCK, &Signals, nullptr);
    ::raise(SIGPIPE);
    std::_Exit(128 + SIGPIPE);
}
