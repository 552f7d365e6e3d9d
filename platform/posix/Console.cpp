#include "platform/Console.h"

#include "platform/Files.h"
#include "platform/ProcessSystem.h"
#include "platform/Processes.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <utility>

namespace
{
using namespace std::chrono_literals;

/// How long a reader may take after termination was requested and the processes have ended.
constexpr auto ReaderGrace = 1s;

mode_t KindOf(int Descriptor)
{
    struct stat Status = {};
    return ::fstat(Descriptor, &Status) == 0 ? Status.st_mode & S_IFMT : 0;
}

/// Whether others can stop taking what is written: a pipe's reader, or who looks at a terminal.
bool KeepsWaiting(int Descriptor)
{
    return KindOf(Descriptor) == S_IFIFO || ::isatty(Descriptor) != 0;
}

bool IsWritable(int Descriptor, std::chrono::milliseconds Within)
{
    pollfd Poll{Descriptor, POLLOUT, 0};
    return ::poll(&Poll, 1, static_cast<int>(Within.count())) > 0;
}
} // namespace

TByteOutput::TByteOutput(int Descriptor, TKind Kind, bool IsOwn) : FDescriptor(Descriptor), FKind(Kind), FIsOwn(IsOwn)
{}

TByteOutput::TByteOutput(TByteOutput&& Other) noexcept
    : FDescriptor(Other.FDescriptor), FKind(Other.FKind), FIsOwn(std::exchange(Other.FIsOwn, false))
{}

TByteOutput::~TByteOutput()
{
    if (FIsOwn)
        ::close(FDescriptor);
}

// The stream is shared with other programs, for which it must go on to block: it is opened once more.
TByteOutput TByteOutput::StandardOutput()
{
    if (KindOf(STDOUT_FILENO) == S_IFSOCK)
        return {STDOUT_FILENO, TKind::Socket, false};
    if (!KeepsWaiting(STDOUT_FILENO))
        return {STDOUT_FILENO, TKind::Direct, false};
    const int Own = ::open("/proc/self/fd/1", O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    return Own < 0 ? TByteOutput(STDOUT_FILENO, TKind::Shared, false) : TByteOutput(Own, TKind::NonBlocking, true);
}

TByteOutput TByteOutput::File(const std::string& FileName)
{
    const int Own = ::open(FileName.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOCTTY | O_CLOEXEC, 0666);
    if (Own < 0)
        throw EFileError(FileName, std::generic_category().message(errno));
    if (!KeepsWaiting(Own))
        return {Own, TKind::Direct, true};
    ::fcntl(Own, F_SETFL, ::fcntl(Own, F_GETFL) | O_NONBLOCK);
    return {Own, TKind::NonBlocking, true};
}

long TByteOutput::WriteSome(std::string_view Bytes) const
{
    // So many a pipe takes at once when it takes any.
    constexpr std::size_t Atom = 512;
    if (FKind == TKind::Socket)
        return ::send(FDescriptor, Bytes.data(), Bytes.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
    if (FKind != TKind::Shared)
        return ::write(FDescriptor, Bytes.data(), Bytes.size());
    if (IsWritable(FDescriptor, 0ms))
        return ::write(FDescriptor, Bytes.data(), std::min(Bytes.size(), Atom));
    errno = EAGAIN;
    return -1;
}

/// False: it is not to be waited for any longer.
bool TByteOutput::Wait() const
{
    constexpr auto Interval = 50ms;
    auto Patience = std::chrono::milliseconds(ReaderGrace);
    while (!IsWritable(FDescriptor, Interval))
    {
        const bool IsEnding = ProcessLoop::Attend();
        if (Termination::Requested() != 0 && !IsEnding)
            Patience -= Interval;
        if (Termination::IsUrgent() || Patience <= 0ms)
            return false;
    }
    return true;
}

std::error_code TByteOutput::Write(std::string_view Bytes)
{
    while (!Bytes.empty())
    {
        const long Written = WriteSome(Bytes);
        if (Written >= 0)
            Bytes.remove_prefix(static_cast<std::size_t>(Written));
        else if (errno == EAGAIN)
        {
            if (!Wait())
                return std::make_error_code(std::errc::operation_canceled);
        }
        else if (errno == EIO && KindOf(FDescriptor) == S_IFCHR)
            return std::make_error_code(std::errc::not_connected);
        else if (errno != EINTR)
            return {errno, std::generic_category()};
    }
    return {};
}

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
    return TByteOutput::StandardOutput().Write(Bytes);
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
