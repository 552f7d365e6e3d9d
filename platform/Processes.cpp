#include "platform/Processes.h"

#include "platform/ProcessLines.h"
#include "platform/ProcessSystem.h"

#include <uv.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <exception>
#include <memory>
#include <optional>

namespace
{
using namespace std::chrono_literals;

constexpr std::size_t BlockSize = 256 * 1024;
/// How long a child that the tool left behind may keep the pipes open.
constexpr std::chrono::milliseconds PipeGrace = 1s;
/// How often what tools left behind and has ended is taken note of.
constexpr std::chrono::milliseconds OrphanPoll = 500ms;
using ProcessSystem::AskGrace;
using ProcessSystem::KillGrace;
using ProcessSystem::TreePoll;

std::atomic<uv_async_t*> WakeHandle = nullptr;

class TProcessRun;
TProcessRun* Running = nullptr;

/// The loop on which all processes run. It is made for the first one and kept, since making one costs more than
/// many a tool.
class TLoop
{
public:
    TLoop()
    {
        // The library ends the program when it finds no room for the files of its own.
        constexpr int FilesOfLoop = 8;
        if (!ProcessSystem::HasRoomForFiles(FilesOfLoop) || uv_loop_init(&FLoop) != 0 ||
            uv_async_init(&FLoop, &FWake, [](uv_async_t*) {}) != 0)
            throw std::runtime_error("no event loop can be made, too many files are open");
        uv_unref(reinterpret_cast<uv_handle_t*>(&FWake));
        ProcessSystem::AdoptOrphans();
        WakeHandle = &FWake;
    }
    ~TLoop()
    {
        WakeHandle = nullptr;
        uv_close(reinterpret_cast<uv_handle_t*>(&FWake), nullptr);
        uv_run(&FLoop, UV_RUN_DEFAULT);
        uv_loop_close(&FLoop);
    }
    TLoop(const TLoop&) = delete;
    TLoop& operator=(const TLoop&) = delete;

    static TLoop& Instance()
    {
        static TLoop Loop;
        return Loop;
    }
    uv_loop_t* Get() { return &FLoop; }

    /// One process runs at a time: taken while one does.
    std::atomic_flag Taken;
    ProcessSystem::TWatcher Watcher;
    /// Left uninitialised, so that pages that no tool fills cost nothing.
    std::array<std::unique_ptr<char[]>, 2> Blocks{std::make_unique_for_overwrite<char[]>(BlockSize),
                                                  std::make_unique_for_overwrite<char[]>(BlockSize)};

private:
    uv_loop_t FLoop{};
    uv_async_t FWake{};
};

/// Gives the loop back when the process has ended, however.
class TLoopLease
{
public:
    explicit TLoopLease(TLoop& Loop) : FLoop(Loop)
    {
        if (FLoop.Taken.test_and_set())
            throw std::logic_error("a process was started while another one runs");
    }
    ~TLoopLease() { FLoop.Taken.clear(); }
    TLoopLease(const TLoopLease&) = delete;
    TLoopLease& operator=(const TLoopLease&) = delete;

private:
    TLoop& FLoop;
};

/// A pipe from the process. The end to be written is closed when the process has it.
class TOutputPipe
{
public:
    ~TOutputPipe() { CloseWriteEnd(); }
    TOutputPipe() = default;
    TOutputPipe(const TOutputPipe&) = delete;
    TOutputPipe& operator=(const TOutputPipe&) = delete;

    /// False: no more files can be opened.
    bool Open(uv_loop_t* Loop)
    {
        std::array<uv_file, 2> Ends{};
        if (uv_pipe(Ends.data(), UV_NONBLOCK_PIPE, 0) != 0)
            return false;
        FReadEnd = Ends[0];
        FWriteEnd = Ends[1];
        ProcessSystem::EnlargePipe(FReadEnd);
        uv_pipe_init(Loop, &Handle, 0);
        IsOpen = true;
        return uv_pipe_open(&Handle, FReadEnd) == 0;
    }
    [[nodiscard]] uv_file WriteEnd() const { return FWriteEnd; }
    void CloseWriteEnd()
    {
        if (FWriteEnd < 0)
            return;
        uv_fs_t Request;
        uv_fs_close(nullptr, &Request, FWriteEnd, nullptr);
        uv_fs_req_cleanup(&Request);
        FWriteEnd = -1;
    }
    /// Reads without waiting; 0 or less: nothing is there.
    [[nodiscard]] ssize_t ReadNow() const
    {
        uv_buf_t Buffer = uv_buf_init(Block, BlockSize);
        uv_fs_t Request;
        const ssize_t Count = uv_fs_read(nullptr, &Request, FReadEnd, &Buffer, 1, -1, nullptr);
        uv_fs_req_cleanup(&Request);
        return Count;
    }
    void Close()
    {
        if (IsOpen)
            uv_close(reinterpret_cast<uv_handle_t*>(&Handle), nullptr);
        IsOpen = false;
    }

    uv_pipe_t Handle{};
    bool IsOpen = false;
    char* Block = nullptr;
    TLineSplitter Lines;
    void (IProcessListener::*Deliver)(std::string_view) = nullptr;

private:
    uv_file FReadEnd = -1;
    uv_file FWriteEnd = -1;
};

/// The environment for uv_spawn: the inherited one with some variables set.
class TEnvironmentBlock
{
public:
    explicit TEnvironmentBlock(const std::vector<std::pair<std::string, std::string>>& Changes)
    {
        uv_env_item_t* Items = nullptr;
        int Count = 0;
        if (Changes.empty() || uv_os_environ(&Items, &Count) != 0)
            return;
        for (int Index = 0; Index < Count; ++Index)
            Set(Items[Index].name, Items[Index].value);
        uv_os_free_environ(Items, Count);
        for (const auto& [Name, Value] : Changes)
            Set(Name, Value);
        for (std::string& Text : FTexts)
            FPointers.push_back(Text.data());
        FPointers.push_back(nullptr);
    }
    /// Null: all is inherited.
    char** Get() { return FPointers.empty() ? nullptr : FPointers.data(); }

private:
    void Set(const std::string& Name, const std::string& Value)
    {
        const std::string Start = Name + "=";
        const auto Found = std::ranges::find_if(FTexts, [&](const auto& Text) { return Text.starts_with(Start); });
        if (Found != FTexts.end())
            *Found = Start + Value;
        else
            FTexts.push_back(Start + Value);
    }

    std::vector<std::string> FTexts;
    std::vector<char*> FPointers;
};

/// Has the tree ended with our program, should that be killed, as long as it lives.
class TWatchedTree
{
public:
    explicit TWatchedTree(const ProcessSystem::TProcessTree& Tree) { ProcessSystem::TWatcher::Watch(&Tree); }
    ~TWatchedTree() { ProcessSystem::TWatcher::Watch(nullptr); }
    TWatchedTree(const TWatchedTree&) = delete;
    TWatchedTree& operator=(const TWatchedTree&) = delete;
};

/// Why a process cannot start in the folder; empty if it can.
std::string FolderProblem(const std::string& Folder)
{
    uv_fs_t Request;
    const int Result = uv_fs_access(nullptr, &Request, (Folder + "/.").c_str(), 1, nullptr);
    uv_fs_req_cleanup(&Request);
    return Result == 0 ? std::string() : uv_strerror(Result);
}

/// One run, from start to end. Its callbacks are called by C code, so no exception may leave them: the first one is
/// kept, ends the processes, and is thrown again at the end.
class TProcessRun
{
public:
    TProcessRun(TLoop& Loop, const TProcessStart& Start, IProcessListener& Listener)
        : FLoop(Loop), FStart(Start), FListener(Listener)
    {
        FStdOut.Block = Loop.Blocks[0].get();
        FStdOut.Deliver = &IProcessListener::OnStdOutLine;
        FStdErr.Block = Loop.Blocks[1].get();
        FStdErr.Deliver = &IProcessListener::OnStdErrLine;
        for (TOutputPipe* Pipe : {&FStdOut, &FStdErr})
            Pipe->Lines = TLineSplitter(
                [&Listener](std::string_view Line, std::size_t Length) { return Listener.PlaceToCut(Line, Length); });
    }
    /// Closes what is open and lets the loop forget it.
    ~TProcessRun()
    {
        FStdOut.Close();
        FStdErr.Close();
        FChild.Close();
        for (uv_handle_t* Handle : FHandles)
            uv_close(Handle, nullptr);
        uv_run(FLoop.Get(), UV_RUN_DEFAULT);
    }
    TProcessRun(const TProcessRun&) = delete;
    TProcessRun& operator=(const TProcessRun&) = delete;

    TProcessEnd Run()
    {
        if (const int Signal = Termination::Requested(); Signal != 0)
            return {.ExitCode = 128 + Signal, .Signal = {}, .SignalNumber = 0, .TimedOut = false, .Terminated = true};
        const TWatchedTree Watched(FTree);
        Spawn();
        ProcessSystem::TWatcher::Watch(&FTree);
        StartReading();
        StartTimer(FLimitTimer, FStart.TimeLimit, 0ms, &TProcessRun::TimeLimitPassed);
        StartTimer(FTickTimer, FStart.TickInterval, FStart.TickInterval, &TProcessRun::Tick);
        StartTimer(FOrphanTimer, OrphanPoll, OrphanPoll, &TProcessRun::ReapOrphans);
        while (!IsDone())
        {
            uv_run(FLoop.Get(), UV_RUN_ONCE);
            LookAtRequests();
        }
        ProcessSystem::ReapOrphans(0);
        if (FFailure)
            std::rethrow_exception(FFailure);
        return FEnd;
    }

    /// What the loop would do besides reading, were it not kept waiting by the listener.
    bool Attend()
    {
        FChild.Look();
        LookAtRequests();
        if (!FExited && FStart.TimeLimit > 0ms && uv_hrtime() > FDeadline)
            TimeLimitPassed();
        if (FEnding)
            PollTree();
        return FEnding;
    }

private:
    using TStep = void (TProcessRun::*)();
    /// A timer that knows which step it leads to.
    struct TTimer
    {
        uv_timer_t Handle{};
        TProcessRun* Run = nullptr;
        TStep Step = nullptr;
    };

    void Spawn();
    void StartReading();
    void StartTimer(TTimer& Timer, std::chrono::milliseconds After, std::chrono::milliseconds Repeat, TStep Step);
    void Exited(std::int64_t ExitCode, int Signal);
    void Read(TOutputPipe& Pipe, ssize_t Count);
    void DrainAndClose();
    void Close(TOutputPipe& Pipe);
    void TimeLimitPassed();
    void Tick();
    void EndTree();
    void PollTree();
    void LookAtRequests();
    void ReapOrphans() { ProcessSystem::ReapOrphans(FChild.Process()); }
    template <typename TFunction> void Guarded(const TFunction& Function);

    [[nodiscard]] bool IsDone() const { return FExited && !FEnding && !FStdOut.IsOpen && !FStdErr.IsOpen; }

    TLoop& FLoop;
    const TProcessStart& FStart;
    IProcessListener& FListener;
    ProcessSystem::TProcessTree FTree;
    TProcessEnd FEnd;
    std::exception_ptr FFailure;

    ProcessSystem::TChildProcess FChild;
    TOutputPipe FStdOut;
    TOutputPipe FStdErr;
    TTimer FLimitTimer;
    TTimer FTickTimer;
    TTimer FPipeTimer;
    TTimer FTreeTimer;
    TTimer FOrphanTimer;
    std::vector<uv_handle_t*> FHandles; ///< open, besides the pipes
    bool FExited = false;
    bool FEnding = false; ///< from EndTree until the whole tree is gone
    std::uint64_t FEndingSince = 0;
    std::uint64_t FDeadline =
        uv_hrtime() + static_cast<std::uint64_t>(std::chrono::nanoseconds(FStart.TimeLimit).count());
};

void TProcessRun::Spawn()
{
    if (const std::string Reason = FStart.Folder.empty() ? "" : FolderProblem(FStart.Folder); !Reason.empty())
        throw EProcessStartError(FStart.Folder + ": " + Reason);
    const ProcessSystem::TExecutable Executable = ProcessSystem::FindExecutable(FStart.Executable);
    if (!Executable.Problem.empty())
        throw EProcessStartError(FStart.Executable + ": " + Executable.Problem);
    if (!FStdOut.Open(FLoop.Get()) || !FStdErr.Open(FLoop.Get()))
        throw EProcessStartError(FStart.Executable + ": no pipe can be made");

    std::vector<std::string> Texts = ProcessSystem::ArgumentList(FStart.Arguments);
    Texts.insert(Texts.begin(), FStart.Executable);
    std::vector<char*> Arguments(Texts.size() + 1); // the last one stays null
    std::ranges::transform(Texts, Arguments.begin(), [](std::string& Text) { return Text.data(); });
    TEnvironmentBlock Environment(FStart.Environment);
    const ProcessSystem::TChildStart Start{.File = Executable.Path.c_str(),
                                           .Arguments = Arguments.data(),
                                           .Environment = Environment.Get(),
                                           .Folder = FStart.Folder.empty() ? nullptr : FStart.Folder.c_str(),
                                           .StdOut = FStdOut.WriteEnd(),
                                           .StdErr = FStdErr.WriteEnd(),
                                           .HideWindow = FStart.HideWindow};
    const std::string Problem =
        FChild.Start(FLoop.Get(), Start, this, [](void* Owner, std::int64_t ExitCode, int Signal) {
            static_cast<TProcessRun*>(Owner)->Exited(ExitCode, Signal);
        });
    if (!Problem.empty())
        throw EProcessStartError(FStart.Executable + ": " + Problem);
    FTree.SetRoot(FChild.Process());
}

void TProcessRun::StartReading()
{
    for (TOutputPipe* Pipe : {&FStdOut, &FStdErr})
    {
        Pipe->CloseWriteEnd();
        Pipe->Handle.data = this;
        uv_read_start(
            reinterpret_cast<uv_stream_t*>(&Pipe->Handle),
            [](uv_handle_t* Handle, std::size_t, uv_buf_t* Buffer) {
                auto& Run = *static_cast<TProcessRun*>(Handle->data);
                const bool IsStdOut = Handle == reinterpret_cast<uv_handle_t*>(&Run.FStdOut.Handle);
                *Buffer = uv_buf_init(IsStdOut ? Run.FStdOut.Block : Run.FStdErr.Block, BlockSize);
            },
            [](uv_stream_t* Stream, ssize_t Count, const uv_buf_t*) {
                auto& Run = *static_cast<TProcessRun*>(Stream->data);
                const bool IsStdOut = Stream == reinterpret_cast<uv_stream_t*>(&Run.FStdOut.Handle);
                Run.Read(IsStdOut ? Run.FStdOut : Run.FStdErr, Count);
            });
    }
}

void TProcessRun::StartTimer(TTimer& Timer, std::chrono::milliseconds After, std::chrono::milliseconds Repeat,
                             TStep Step)
{
    if (After <= 0ms)
        return;
    Timer.Run = this;
    Timer.Step = Step;
    if (Timer.Handle.data == nullptr)
    {
        uv_timer_init(FLoop.Get(), &Timer.Handle);
        Timer.Handle.data = &Timer;
        FHandles.push_back(reinterpret_cast<uv_handle_t*>(&Timer.Handle));
    }
    uv_update_time(FLoop.Get());
    uv_timer_start(
        &Timer.Handle,
        [](uv_timer_t* Handle) {
            const auto& Due = *static_cast<TTimer*>(Handle->data);
            (Due.Run->*Due.Step)();
        },
        static_cast<std::uint64_t>(After.count()), static_cast<std::uint64_t>(Repeat.count()));
}

void TProcessRun::Exited(std::int64_t ExitCode, int Signal)
{
    FExited = true;
    FEnd.ExitCode = static_cast<int>(ExitCode);
    FEnd.SignalNumber = Signal;
    if (Signal != 0)
        FEnd.Signal = ProcessSystem::SignalName(Signal);
    if (FLimitTimer.Handle.data != nullptr)
        uv_timer_stop(&FLimitTimer.Handle);
    StartTimer(FPipeTimer, PipeGrace, 0ms, &TProcessRun::DrainAndClose);
}

void TProcessRun::Read(TOutputPipe& Pipe, ssize_t Count)
{
    if (Count < 0)
        Close(Pipe);
    else if (!FFailure)
        Guarded([&] {
            Pipe.Lines.Add({Pipe.Block, static_cast<std::size_t>(Count)},
                           [&](std::string_view Line) { (FListener.*Pipe.Deliver)(Line); });
        });
}

/// A child that was left behind still holds a pipe: takes what stands in it, but not what the child goes on writing.
void TProcessRun::DrainAndClose()
{
    constexpr std::size_t PipeCapacity = 1024 * 1024;
    for (TOutputPipe* Pipe : {&FStdOut, &FStdErr})
    {
        std::size_t Drained = 0;
        while (Pipe->IsOpen && Drained < PipeCapacity)
        {
            const ssize_t Count = Pipe->ReadNow();
            if (Count <= 0)
                break;
            Read(*Pipe, Count);
            Drained += static_cast<std::size_t>(Count);
        }
        Close(*Pipe);
    }
}

void TProcessRun::Close(TOutputPipe& Pipe)
{
    if (Pipe.IsOpen && !FFailure)
        Guarded([&] { Pipe.Lines.Finish([&](std::string_view Line) { (FListener.*Pipe.Deliver)(Line); }); });
    Pipe.Close();
}

void TProcessRun::TimeLimitPassed()
{
    FEnd.TimedOut = true;
    EndTree();
}

void TProcessRun::Tick()
{
    if (!FFailure)
        Guarded([&] { FListener.OnTick(); });
}

void TProcessRun::EndTree()
{
    if (FEnding)
        return;
    FEnding = true;
    FEndingSince = uv_hrtime();
    FTree.Ask();
    StartTimer(FTreeTimer, TreePoll, TreePoll, &TProcessRun::PollTree);
}

/// Sees whether the processes that were asked to end have done so, and makes them when they had their time.
void TProcessRun::PollTree()
{
    const std::chrono::nanoseconds Waited(uv_hrtime() - FEndingSince);
    const bool GivesUp = Waited > AskGrace + KillGrace;
    if (GivesUp || !FTree.IsAlive())
    {
        FEnding = false;
        uv_timer_stop(&FTreeTimer.Handle);
        if (GivesUp && !FExited)
            Exited(0, SIGKILL);
    }
    else if (Waited > AskGrace || Termination::IsUrgent())
        FTree.Kill();
}

void TProcessRun::LookAtRequests()
{
    if (Termination::Requested() == 0 || FEnd.Terminated)
        return;
    FEnd.Terminated = true;
    EndTree();
}

template <typename TFunction> void TProcessRun::Guarded(const TFunction& Function)
{
    try
    {
        Function();
    }
    catch (...) // whatever it is, Run throws it again
    {
        FFailure = std::current_exception();
        EndTree();
    }
}

/// Makes a run known to those who attend.
class TRunningScope
{
public:
    explicit TRunningScope(TProcessRun& Run) { Running = &Run; }
    ~TRunningScope() { Running = nullptr; }
    TRunningScope(const TRunningScope&) = delete;
    TRunningScope& operator=(const TRunningScope&) = delete;
};
} // namespace

void ProcessLoop::Wake()
{
    if (uv_async_t* Handle = WakeHandle)
        uv_async_send(Handle);
}

bool ProcessLoop::Attend()
{
    return Running != nullptr && Running->Attend();
}

TProcessEnd RunProcess(const TProcessStart& Start, IProcessListener& Listener)
{
    TLoop& Loop = TLoop::Instance();
    const TLoopLease Lease(Loop);
    TProcessRun Run(Loop, Start, Listener);
    const TRunningScope Scope(Run);
    return Run.Run();
}
