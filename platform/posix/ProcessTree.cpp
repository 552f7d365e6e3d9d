#include "platform/ProcessSystem.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <csignal>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <unordered_set>
#if defined(__linux__)
#include <sys/prctl.h>
#endif

namespace
{
/// What the system tells of one process.
struct TProcessStatus
{
    int Process = 0;
    char State = 0;
    int Parent = 0;
    int Group = 0;
    int Session = 0;
    std::uint64_t Begin = 0; ///< in clock ticks since the system's start
};

/// The text of a file below /proc; empty if it is gone.
std::string ReadStatus(const std::string& FileName)
{
    std::array<char, 1024> Buffer{};
    std::string Result;
    const int Descriptor = open(FileName.c_str(), O_RDONLY | O_CLOEXEC);
    if (Descriptor < 0)
        return Result;
    for (ssize_t Count = 1; Count > 0;)
    {
        Count = read(Descriptor, Buffer.data(), Buffer.size());
        Result.append(Buffer.data(), Count > 0 ? static_cast<std::size_t>(Count) : 0);
    }
    close(Descriptor);
    return Result;
}

/// The number at the front of Text, which loses it and the blank behind it.
std::uint64_t TakeNumber(std::string_view& Text)
{
    std::uint64_t Number = 0;
    std::from_chars(Text.data(), Text.data() + Text.size(), Number);
    Text.remove_prefix(std::min(Text.size(), Text.find(' ') + 1));
    return Number;
}

/// Reads "pid (name) state parent group session ...". The name may hold anything, also blanks and parentheses.
bool ReadProcess(const char* Entry, TProcessStatus& Status)
{
    const std::string Text = ReadStatus(std::string("/proc/") + Entry + "/stat");
    std::string_view Rest = Text;
    Status.Process = static_cast<int>(TakeNumber(Rest));
    const std::size_t NameEnd = Rest.rfind(") ");
    if (NameEnd == std::string_view::npos || Rest.size() < NameEnd + 4)
        return false;
    Rest.remove_prefix(NameEnd + 2);
    Status.State = Rest.front();
    Rest.remove_prefix(2);
    Status.Parent = static_cast<int>(TakeNumber(Rest));
    Status.Group = static_cast<int>(TakeNumber(Rest));
    Status.Session = static_cast<int>(TakeNumber(Rest));
    constexpr int FieldsBeforeBegin = 15;
    for (int Field = 0; Field < FieldsBeforeBegin; ++Field)
        TakeNumber(Rest);
    Status.Begin = TakeNumber(Rest);
    return true;
}

/// The processes that began since and have not ended.
std::vector<TProcessStatus> ReadProcesses(std::uint64_t Since)
{
    std::vector<TProcessStatus> Result;
    DIR* Folder = opendir("/proc");
    if (Folder == nullptr)
        return Result;
    const int Self = getpid();
    while (const dirent* Entry = readdir(Folder)) // NOLINT(concurrency-mt-unsafe): the folder is ours
    {
        TProcessStatus Status;
        const bool IsProcess = Entry->d_name[0] >= '1' && Entry->d_name[0] <= '9';
        if (IsProcess && ReadProcess(Entry->d_name, Status) && Status.Begin >= Since && Status.Process != Self &&
            Status.State != 'Z' && Status.State != 'X')
            Result.push_back(Status);
    }
    closedir(Folder);
    return Result;
}

bool HasMark(int Process, const std::string& Mark)
{
    const std::string Environment = ReadStatus("/proc/" + std::to_string(Process) + "/environ");
    return Environment.starts_with(Mark) || Environment.find('\0' + Mark) != std::string::npos;
}
} // namespace

namespace ProcessSystem
{
void AdoptOrphans()
{
#if defined(__linux__)
    prctl(PR_SET_CHILD_SUBREAPER, 1);
#endif
}

void ReapOrphans(int Root)
{
    constexpr int MostAtOnce = 10'000; // others may come for ever
    for (int Count = 0; Count < MostAtOnce; ++Count)
    {
        siginfo_t Ended{};
        if (waitid(P_ALL, 0, &Ended, WEXITED | WNOHANG | WNOWAIT) != 0 || Ended.si_pid == 0 || Ended.si_pid == Root)
            return;
        waitpid(Ended.si_pid, nullptr, WNOHANG);
    }
}

TProcessTree::TProcessTree() : FOwner(getpid())
{
    timespec Now{};
#if defined(__linux__)
    clock_gettime(CLOCK_BOOTTIME, &Now);
#endif
    constexpr std::uint64_t NanosecondsPerSecond = 1'000'000'000;
    static const auto Ticks = static_cast<std::uint64_t>(sysconf(_SC_CLK_TCK));
    FBegin = static_cast<std::uint64_t>(Now.tv_sec) * Ticks +
             static_cast<std::uint64_t>(Now.tv_nsec) * Ticks / NanosecondsPerSecond;
}

/// What began since and belongs to the root's session, descends from it, or bears the mark. Orphans have become the
/// owner's children, so those that left the session are found as well.
std::vector<TProcessTree::TMember> TProcessTree::Members() const
{
    std::vector<TMember> Result;
    std::unordered_set<int> Known = {FOwner};
    std::vector<TProcessStatus> Others = ReadProcesses(FBegin);
    std::erase_if(Others, [](const TProcessStatus& Status) { return Status.Process == TWatcher::Process(); });
    const auto Belongs = [&](const TProcessStatus& Status) {
        return Known.contains(Status.Parent) || (FRoot != 0 && Status.Session == FRoot) ||
               (!FMark.empty() && HasMark(Status.Process, FMark));
    };
    for (bool Grows = true; Grows;)
    {
        const auto End = std::partition(Others.begin(), Others.end(), [&](const auto& One) { return !Belongs(One); });
        Grows = End != Others.end();
        for (auto Status = End; Status != Others.end(); ++Status)
        {
            Known.insert(Status->Process);
            Result.push_back({Status->Process, Status->Group});
        }
        Others.erase(End, Others.end());
    }
    return Result;
}

void TProcessTree::Ask() const
{
    std::vector<TMember> Found = Members();
    // The root first: it is not to take the ends of its children for failures of theirs.
    std::partition(Found.begin(), Found.end(), [&](const TMember& Member) { return Member.Process == FRoot; });
    for (const TMember& Member : Found)
    {
        kill(Member.Process, SIGTERM);
        kill(Member.Process, SIGCONT); // a stopped process would not notice
    }
}

void TProcessTree::Kill() const
{
    constexpr int MostLooks = 20;
    std::unordered_set<int> Stopped;
    // A whole group stops and ends before any of it can start another, which single ones may do between two looks.
    std::unordered_set<int> Groups;
    const int OwnGroup = getpgrp();
    for (std::size_t Before = 1, Look = 0; Look < MostLooks && Before != Stopped.size(); ++Look)
    {
        Before = Stopped.size();
        for (const TMember& Member : Members())
        {
            if (Stopped.insert(Member.Process).second)
                kill(Member.Process, SIGSTOP);
            if (Member.Group != OwnGroup && Groups.insert(Member.Group).second)
                kill(-Member.Group, SIGSTOP);
        }
    }
    for (const int Group : Groups)
        kill(-Group, SIGKILL);
    for (const int Process : Stopped)
        kill(Process, SIGKILL);
}

bool TProcessTree::IsAlive() const
{
    constexpr int Looks = 5; // one that starts another and ends may be missed by a look, both of them
    ReapOrphans(FRoot);
    for (int Look = 0; Look < Looks; ++Look)
        if (!Members().empty())
            return true;
    return false;
}
} // namespace ProcessSystem
