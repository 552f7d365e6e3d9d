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
    int Session = 0;
    std::uint64_t Begin = 0; ///< in clock ticks since the system's start
};

/// The text of a small file below /proc; empty if it is gone.
std::string ReadStatus(const std::string& FileName)
{
    std::array<char, 1024> Buffer{};
    const int Descriptor = open(FileName.c_str(), O_RDONLY | O_CLOEXEC);
    if (Descriptor < 0)
        return {};
    const ssize_t Count = read(Descriptor, Buffer.data(), Buffer.size());
    close(Descriptor);
    return {Buffer.data(), Count > 0 ? static_cast<std::size_t>(Count) : 0};
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
    TakeNumber(Rest); // process group
    Status.Session = static_cast<int>(TakeNumber(Rest));
    constexpr int FieldsBeforeBegin = 15;
    for (int Field = 0; Field < FieldsBeforeBegin; ++Field)
        TakeNumber(Rest);
    Status.Begin = TakeNumber(Rest);
    return true;
}

std::vector<TProcessStatus> ReadProcesses(std::uint64_t Since)
{
    std::vector<TProcessStatus> Result;
    DIR* Folder = opendir("/proc");
    if (Folder == nullptr)
        return Result;
    while (const dirent* Entry = readdir(Folder)) // NOLINT(concurrency-mt-unsafe): the folder is ours
    {
        TProcessStatus Status;
        const bool IsProcess = Entry->d_name[0] >= '1' && Entry->d_name[0] <= '9';
        if (IsProcess && ReadProcess(Entry->d_name, Status) && Status.Begin >= Since)
            Result.push_back(Status);
    }
    closedir(Folder);
    return Result;
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

TProcessTree::TProcessTree()
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

/// What began since and belongs to the root's session or descends from it. Orphans have become our children, so
/// those that left the session are found as well.
std::vector<TProcessTree::TMember> TProcessTree::Members() const
{
    std::vector<TMember> Result;
    std::vector<TProcessStatus> Others = ReadProcesses(FBegin);
    auto End = Others.end();
    const int Self = getpid();
    const auto Belongs = [&](const TProcessStatus& Status) {
        return Status.Parent == Self || Status.Session == FRoot ||
               std::ranges::any_of(Result, [&](const TMember& Member) { return Member.Process == Status.Parent; });
    };
    for (bool Grows = true; Grows;)
    {
        const auto Found = std::partition(Others.begin(), End, [&](const auto& Status) { return !Belongs(Status); });
        Grows = Found != End;
        for (auto Status = Found; Status != End; ++Status)
            Result.push_back({Status->Process, Status->Parent, Status->State == 'Z' || Status->State == 'X'});
        End = Found;
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
    std::size_t Known = 0;
    for (std::vector<TMember> Found = Members(); Found.size() > Known; Found = Members())
    {
        Known = Found.size();
        for (const TMember& Member : Found)
            kill(Member.Process, SIGKILL);
    }
}

bool TProcessTree::IsAlive() const
{
    const std::vector<TMember> Found = Members();
    const int Self = getpid();
    for (const TMember& Member : Found)
        if (Member.IsZombie && Member.Parent == Self && Member.Process != FRoot)
            waitpid(Member.Process, nullptr, WNOHANG);
    return std::ranges::any_of(Found, [](const TMember& Member) { return !Member.IsZombie; });
}

void TProcessTree::ReapGroup() const
{
    static std::vector<int> Groups; // those of earlier processes too, whose left-behind children may end at any time
    Groups.push_back(FRoot);
    std::erase_if(Groups, [](int Group) {
        pid_t Ended = 0;
        do
            Ended = waitpid(-Group, nullptr, WNOHANG);
        while (Ended > 0);
        return Ended < 0;
    });
}
} // namespace ProcessSystem
