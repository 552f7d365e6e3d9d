// Runs two commands in turn, as whole processes with their output thrown away, and compares the medians:
//   compare NAME [--runs N] [--sync 1] [--ratio LIMIT] [--milliseconds LIMIT] [--mebibytes LIMIT]
//           -- COMMAND... [-- YARDSTICK...]
// With --sync what waits to be written to disk is written before each run. The limits are for COMMAND: its time as a
// multiple of the yardstick's, its own time, its peak memory. Prints one line and exits with 1 if a limit is exceeded.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

namespace
{
struct TSample
{
    double Milliseconds = 0;
    double Mebibytes = 0;
};

struct TRequest
{
    std::string Name;
    int Runs = 21;
    bool Sync = false;
    std::optional<double> Ratio;
    std::optional<double> Milliseconds;
    std::optional<double> Mebibytes;
    std::vector<char*> Command;
    std::vector<char*> Yardstick;
};

[[noreturn]] void Fail(const std::string& Message)
{
    std::fprintf(stderr, "compare: %s\n", Message.c_str());
    std::exit(2);
}

TRequest ParseRequest(int Count, char** Arguments)
{
    TRequest Request;
    if (Count < 2)
        Fail("no name");
    Request.Name = Arguments[1];
    int Index = 2;
    for (; Index + 1 < Count && std::string(Arguments[Index]) != "--"; Index += 2)
    {
        const std::string Option = Arguments[Index];
        const double Value = std::atof(Arguments[Index + 1]);
        if (Option == "--runs")
            Request.Runs = static_cast<int>(Value);
        else if (Option == "--sync")
            Request.Sync = Value != 0;
        else if (Option == "--ratio")
            Request.Ratio = Value;
        else if (Option == "--milliseconds")
            Request.Milliseconds = Value;
        else if (Option == "--mebibytes")
            Request.Mebibytes = Value;
        else
            Fail("unknown option " + Option);
    }
    std::vector<char*>* Target = &Request.Command;
    for (++Index; Index < Count; ++Index)
        if (std::string(Arguments[Index]) == "--")
            Target = &Request.Yardstick;
        else
            Target->push_back(Arguments[Index]);
    if (Request.Command.empty())
        Fail("no command");
    return Request;
}

TSample RunOnce(const TRequest& Request, std::vector<char*> Command)
{
    Command.push_back(nullptr);
    if (Request.Sync)
        sync();
    const auto Start = std::chrono::steady_clock::now();
    const pid_t Child = fork();
    if (Child == 0)
    {
        dup2(open("/dev/null", O_RDWR | O_CLOEXEC), STDOUT_FILENO);
        execvp(Command[0], Command.data());
        _exit(127);
    }
    int Status = 0;
    rusage Usage{};
    wait4(Child, &Status, 0, &Usage);
    const std::chrono::duration<double, std::milli> Elapsed = std::chrono::steady_clock::now() - Start;
    if (Status != 0)
        Fail(std::string(Command[0]) + " failed");
    return {Elapsed.count(), static_cast<double>(Usage.ru_maxrss) / 1024};
}

double MedianTime(std::vector<TSample>& Samples)
{
    std::sort(Samples.begin(), Samples.end(),
              [](const TSample& Left, const TSample& Right) { return Left.Milliseconds < Right.Milliseconds; });
    return Samples[Samples.size() / 2].Milliseconds;
}

/// Prints what was measured against its limit; true if it is kept.
bool Report(const char* What, double Value, const std::optional<double>& Limit)
{
    if (!Limit)
        return true;
    std::printf("  %s %.2f (limit %.2f)%s", What, Value, *Limit, Value <= *Limit ? "" : " over the limit");
    return Value <= *Limit;
}
} // namespace

int main(int Count, char** Arguments)
{
    const TRequest Request = ParseRequest(Count, Arguments);
    std::vector<TSample> Ours;
    std::vector<TSample> Theirs;
    double Peak = 0;
    for (int Run = 0; Run < Request.Runs; ++Run)
    {
        Ours.push_back(RunOnce(Request, Request.Command));
        Peak = std::max(Peak, Ours.back().Mebibytes);
        if (!Request.Yardstick.empty())
            Theirs.push_back(RunOnce(Request, Request.Yardstick));
    }
    const double Time = MedianTime(Ours);
    std::printf("%-28s %9.2f ms", Request.Name.c_str(), Time);
    bool Kept = true;
    if (!Theirs.empty())
    {
        const double Yardstick = MedianTime(Theirs);
        std::printf("  yardstick %9.2f ms", Yardstick);
        Kept = Report("ratio", Time / Yardstick, Request.Ratio) && Kept;
    }
    Kept = Report("ms", Time, Request.Milliseconds) && Kept;
    Kept = Report("MiB", Peak, Request.Mebibytes) && Kept;
    std::printf("\n");
    return Kept ? 0 : 1;
}
