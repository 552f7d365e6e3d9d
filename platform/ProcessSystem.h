// What running processes needs of each operating system; private to the platform.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

using uv_loop_t = struct uv_loop_s;

namespace ProcessSystem
{
/// What a process starts with.
struct TChildStart
{
    const char* File = nullptr;
    char** Arguments = nullptr;   ///< the program's name first, a null last
    char** Environment = nullptr; ///< null: ours
    const char* Folder = nullptr; ///< null: the current one
    int StdOut = -1;              ///< where its streams go; its standard input is empty
    int StdErr = -1;
    bool HideWindow = false;
};

/// A process in a session of its own that a loop watches.
class TChildProcess
{
public:
    using TExited = void (*)(void* Owner, std::int64_t ExitCode, int Signal);

    TChildProcess();
    ~TChildProcess();
    TChildProcess(const TChildProcess&) = delete;
    TChildProcess& operator=(const TChildProcess&) = delete;

    /// Starts it and gives why that failed, empty if it did not. Exited is called with Owner when it has ended.
    [[nodiscard]] std::string Start(uv_loop_t* Loop, const TChildStart& Start, void* Owner, TExited Exited);
    /// The number of the started process.
    [[nodiscard]] int Process() const;
    /// Calls Exited now, if the process has ended and that was not seen yet.
    void Look();
    /// Stops watching. The loop must run once more before the object goes.
    void Close();

private:
    struct TImpl;
    std::unique_ptr<TImpl> FImpl;
};

/// The reason behind an error number of the system, worded as libuv does.
[[nodiscard]] std::string ErrorReason(int Error);
/// The arguments as a start takes them: apart, or on Windows the text as it stands.
[[nodiscard]] std::vector<std::string> ArgumentList(std::string_view Arguments);
/// The file behind an executable's name, found in PATH if it has no folder.
struct TExecutable
{
    std::string Path;    ///< absolute
    std::string Problem; ///< why it cannot be started, as far as the file tells; empty when nothing speaks against it
};
[[nodiscard]] TExecutable FindExecutable(const std::string& Name);
/// Whether so many files more can be opened.
[[nodiscard]] bool HasRoomForFiles(int Count);
/// Lets a pipe hold more, so that the tool waits for its reader less often.
void EnlargePipe(int Descriptor);
/// The name of a signal, "SIGKILL".
[[nodiscard]] std::string SignalName(int Signal);
/// Makes processes whose parent has ended stay descendants of this program. Once is enough.
void AdoptOrphans();
/// Takes note of the children that have ended, but for the process Root, so that none stays a zombie.
void ReapOrphans(int Root);

/// How long processes that were asked to end may take, and how long those that were made to.
constexpr std::chrono::milliseconds AskGrace{2000};
constexpr std::chrono::milliseconds KillGrace{5000};
constexpr std::chrono::milliseconds TreePoll{10};

/// A started process with all that descends from it.
class TProcessTree
{
public:
    /// Now, before the process starts: orphans that are older do not belong to it.
    TProcessTree();
    void SetRoot(int Process) { FRoot = Process; }
    /// Asks every process of the tree to end.
    void Ask() const;
    /// Ends every process of the tree. They are stopped before, since those that go on would start others; still it
    /// takes bounded time, and one that starts others faster than they can be found is met the next time.
    void Kill() const;
    /// Whether one of them still runs; one that has ended and was not taken note of does not.
    [[nodiscard]] bool IsAlive() const;

private:
    friend class TWatcher;
    struct TMember
    {
        int Process = 0;
        int Group = 0;
    };
    [[nodiscard]] std::vector<TMember> Members() const;

    std::uint64_t FBegin;
    int FRoot = 0;
    int FOwner;          ///< the program that started the root
    std::string FMark{}; ///< what the environment of a member also holds; empty: not looked for
};

/// A small process beside ours that ends the running tree when our program has gone without doing so: it was killed,
/// or crashed.
class TWatcher
{
public:
    /// Forks. Without it, should that fail, trees outlive a killed program.
    TWatcher();
    /// Lets it go without ending anything.
    ~TWatcher();
    TWatcher(const TWatcher&) = delete;
    TWatcher& operator=(const TWatcher&) = delete;

    /// Tells which tree is to be ended from now on; null: none.
    static void Watch(const TProcessTree* Tree);
    /// Its process number, 0 if there is none.
    [[nodiscard]] static int Process();
    /// Ends the program with this exit code, once the tree was killed by the watcher. For a signal handler.
    [[noreturn]] static void EndProgram(int ExitCode);
};
} // namespace ProcessSystem

namespace ProcessLoop
{
/// Makes a running RunProcess look at what was requested. May be called from a signal handler.
void Wake();
/// What whoever waits for something else while a process runs calls now and then: the process is ended when its time
/// is up or termination was requested. True while that goes on.
bool Attend();
} // namespace ProcessLoop
