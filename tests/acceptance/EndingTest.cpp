#include "tests/acceptance/ProgramTest.h"

#include "gmock/gmock.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

namespace
{
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;

/// A project of one action whose tool does what a test writes, and a second action.
class TEndingTest : public TProgramTest
{
protected:
    TEndingTest() { UseStandInTools(); }

    void WriteProject(const std::string& Script, const std::string& MoreOfAction = "") const
    {
        WriteStandIn("gacutil.exe", Script);
        WriteFile("quexley.toml", "[[action]]\ntype = \"TGACListAction\"\nname = \"first\"\n" + MoreOfAction +
                                      "[[action]]\ntype = \"TGACListAction\"\nname = \"second\"\n");
    }

    /// Whether the process whose number a file holds has gone, soon.
    [[nodiscard]] bool IsGone(const std::string& File) const
    {
        const int ProcessID = std::stoi(ReadFile(File));
        const auto Deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        while (::kill(ProcessID, 0) == 0 && !IsZombie(ProcessID))
        {
            if (std::chrono::steady_clock::now() > Deadline)
                return false;
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return true;
    }

    /// Runs the program under a limit of the shell's and gives what it says, with its exit code in the last line.
    [[nodiscard]] std::string RunLimited(const std::string& Limit, const std::string& Arguments = "run") const
    {
        WriteTool("limited", "((ulimit " + Limit + "; exec '" QUEXLEY_BINARY_DIR "/bin/quexley' " + Arguments +
                                 ") 2>&1; echo \"exit code $?\") | cat > log");
        const std::filesystem::path Options = OptionsFile();
        const std::string Home = Options.parent_path().parent_path().parent_path().string();
        EXPECT_EQ(std::system(("cd '" + Folder() + "' && HOME='" + Home + "' ./limited").c_str()), 0);
        return ReadFile("log");
    }

    /// Starts a grandchild, writes down both numbers, and never ends.
    static constexpr const char* Hang = "sleep 1000 & echo $! > child; echo working; echo $$ > tool; wait";

private:
    [[nodiscard]] bool IsZombie(int ProcessID) const
    {
        const std::string Status = ReadFile("/proc/" + std::to_string(ProcessID) + "/stat");
        return Status.find(") Z ") != std::string::npos;
    }
};
} // namespace

TEST_F(TEndingTest, ASignalEndsTheToolAndItsChildren)
{
    for (const auto& [Signal, ExitCode] :
         {std::pair(SIGINT, 130), std::pair(SIGQUIT, 131), std::pair(SIGTERM, 143), std::pair(SIGHUP, 143)})
    {
        WriteProject("cd ..; rm -f tool; " + std::string(Hang));
        WriteFile("tool", "");
        TRunningProgram Program = Start({"run", "--log", "log"});
        ASSERT_TRUE(Program.WaitForFile(Path("tool")));
        Program.Send(Signal);
        const TProgramResult Result = Program.Wait();
        EXPECT_EQ(Result.ExitCode, ExitCode);
        EXPECT_THAT(Result.Out, AllOf(HasSubstr("\nended    first  "),
                                      HasSubstr("skipped  second  (the run was ended)\n"), HasSubstr("\nSummary\n")));
        EXPECT_EQ(ReadFile("log"), Result.Out);
        EXPECT_TRUE(IsGone("tool"));
        EXPECT_TRUE(IsGone("child"));
    }
    EXPECT_THAT(Run({"run", "--resume", "--dry-run"}).Out, HasSubstr("[1/2] first"));
}

TEST_F(TEndingTest, ATimeLimitEndsTheToolAndItsChildren)
{
    WriteProject("cd ..; " + std::string(Hang), "timeout = 1\n");
    const TProgramResult Result = Run({"run", "--format", "json", "--only", "first"});
    EXPECT_EQ(Result.ExitCode, 1);
    EXPECT_THAT(Result.Out, HasSubstr("{\"event\":\"process-ended\",\"index\":1,\"timed_out\":true}\n"));
    EXPECT_TRUE(IsGone("tool"));
    EXPECT_TRUE(IsGone("child"));
}

TEST_F(TEndingTest, AToolThatASignalEndsFails)
{
    WriteProject("kill -KILL $$");
    const TProgramResult Result = Run({"run", "--format=json"});
    EXPECT_EQ(Result.ExitCode, 1);
    EXPECT_THAT(Result.Out, HasSubstr("{\"event\":\"process-ended\",\"index\":1,\"signal\":\"SIGKILL\"}\n"));
    EXPECT_THAT(Run({"run"}).Out, HasSubstr("SIGKILL\n"));
}

TEST_F(TEndingTest, AChildThatKeepsThePipesIsNotWaitedFor)
{
    WriteProject("sleep 1000 & echo $! > ../child; printf 'no line end'");
    const auto Start = std::chrono::steady_clock::now();
    const TProgramResult Result = Run({"run", "--only", "first"});
    EXPECT_LT(std::chrono::steady_clock::now() - Start, std::chrono::seconds(10));
    EXPECT_EQ(Result.ExitCode, 0);
    EXPECT_THAT(Result.Out, HasSubstr("  no line end\n"));
    ::kill(std::stoi(ReadFile("child")), SIGKILL);
}

TEST_F(TEndingTest, AKilledProgramTakesTheToolAndItsChildrenAlong)
{
    WriteProject("cd ..; (setsid sleep 1000 & echo $! > daemon); " + std::string(Hang));
    TRunningProgram Program = Start({"run"});
    ASSERT_TRUE(Program.WaitForFile(Path("tool")));
    Program.Send(SIGKILL);
    EXPECT_EQ(Program.Wait().ExitCode, 128 + SIGKILL);
    for (const char* File : {"tool", "child", "daemon"})
        EXPECT_TRUE(IsGone(File)) << File;
}

TEST_F(TEndingTest, ASecondSignalWaitsForNobody)
{
    WriteProject("trap '' INT TERM; cd ..; echo $$ > tool; while :; do sleep 0.1; done");
    TRunningProgram Program = Start({"run"});
    ASSERT_TRUE(Program.WaitForFile(Path("tool")));
    const auto Begin = std::chrono::steady_clock::now();
    Program.Send(SIGINT);
    std::this_thread::sleep_for(std::chrono::milliseconds(200)); // closer ones are the same request
    Program.Send(SIGTERM);
    EXPECT_EQ(Program.Wait().ExitCode, 130);
    EXPECT_LT(std::chrono::steady_clock::now() - Begin, std::chrono::milliseconds(1500));
    EXPECT_TRUE(IsGone("tool"));
}

TEST_F(TEndingTest, AToolSeesItsStandardStreamsOnly)
{
    WriteProject("exec ls /proc/self/fd");
    const std::string Descriptors = "  0\n  1\n  2\n  3\n"; // the last one is the folder that it lists
    EXPECT_THAT(Run({"run", "--log", "log", "--only", "first"}).Out, HasSubstr(")\n" + Descriptors + "ok "));
}

TEST_F(TEndingTest, ARunBesideAnotherLeavesItsNote)
{
    WriteProject("[ -z \"$SLOW\" ] || { echo working > ../tool; sleep 1000; }");
    std::filesystem::create_symlink(".", Path("link"));
    TRunningProgram Program = Start({"run", "--from", "second", "link"}, {{"SLOW", "yes"}});
    ASSERT_TRUE(Program.WaitForFile(Path("tool")));
    EXPECT_EQ(Run({"run"}).ExitCode, 0);
    Program.Send(SIGTERM);
    EXPECT_EQ(Program.Wait().ExitCode, 143);
    EXPECT_THAT(Run({"run", "--resume"}).Out, HasSubstr("[1/1] second"));
}

TEST_F(TEndingTest, TooFewFilesAreToldAsAReason)
{
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizers need a pipe to look at an object";
#endif
    WriteProject("");
    EXPECT_THAT(RunLimited("-n 7"), AllOf(HasSubstr("too many files are open\n"), HasSubstr("exit code 1\n")));
}

TEST_F(TEndingTest, DeepFilesFitIntoASmallStack)
{
    const auto Nested = [](const std::string& Open, int Depth, const std::string& Close) {
        std::string Text;
        for (int Level = 0; Level < 2 * Depth; ++Level)
            Text += Level < Depth ? Open : Close;
        return Text;
    };
    const std::string Action = "[[action]]\ntype = \"TQXAssemblyInfoUpdaterAction\"\nSelection = [\"a.cs\"]\n"
                               "[action.scripts]\nOnProcessEntry = '";
    const std::vector<std::pair<std::string, std::string>> Cases = {
        {"x = " + Nested("[", 250, "]"), "a project has no \"x\""},
        {"x = " + Nested("[", 100'000, "]"), "quexley.toml:1:"},
        {Action + "var x = " + Nested("(", 20'000, ")") + "'", "OnProcessEntry: RangeError: compiler recursion limit"},
        {Action + "var f = function(n) { return [n].map(f); }; f(0);'", "Script error in OnProcessEntry, line 1: "}};
    WriteFile("a.cs", "[assembly: A(\"x\")]\n");
    for (const auto& [Project, Expected] : Cases)
    {
        WriteFile("quexley.toml", Project);
        const std::string Log = RunLimited("-s 256");
        EXPECT_THAT(Log, AllOf(HasSubstr(Expected), testing::ContainsRegex("exit code [023]\n")))
            << Project.substr(0, 150);
    }
}

TEST_F(TEndingTest, AReaderThatStopsMakesNobodyDeaf)
{
    WriteProject("cd ..; sleep 1000 & echo $! > child; while :; do echo flood; done", "timeout = 1\n");
    ASSERT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
    const int Reader = ::open(Path("pipe").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    TRunningProgram Program = Start({"run"}, {}, Path("pipe"));
    ASSERT_TRUE(Program.WaitForFile(Path("child")));
    EXPECT_TRUE(IsGone("child")) << "the time limit";
    Program.Send(SIGTERM);
    EXPECT_EQ(Program.Wait().ExitCode, 143);
    ::close(Reader);
}

TEST_F(TEndingTest, AFileThatNeverComesMakesNobodyDeaf)
{
    ASSERT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
    for (const char* Command : {"run", "validate"})
    {
        TRunningProgram Program = Start({Command, "pipe"});
        Program.Send(SIGTERM);
        EXPECT_EQ(Program.Wait().ExitCode, 143) << Command;
    }
}

TEST_F(TEndingTest, AClosedPipeOrTerminalEndsTheProgramQuietly)
{
    WriteProject("cd ..; sleep 1000 & echo $! > child; while :; do echo flood; done");
    ASSERT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
    const int Terminal = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    ASSERT_EQ(::grantpt(Terminal) + ::unlockpt(Terminal), 0);
    const int Reader = ::open(Path("pipe").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    for (const auto& [Descriptor, Name, ExitCode] :
         {std::tuple(Reader, Path("pipe"), 128 + SIGPIPE), std::tuple(Terminal, std::string(::ptsname(Terminal)), 143)})
    {
        WriteFile("child", "");
        TRunningProgram Program = Start({"run"}, {}, Name);
        ASSERT_TRUE(Program.WaitForFile(Path("child")));
        ::close(Descriptor);
        const TProgramResult Result = Program.Wait();
        EXPECT_EQ(Result.ExitCode, ExitCode);
        EXPECT_THAT(Result.Err, IsEmpty());
        EXPECT_TRUE(IsGone("child"));
    }
}

TEST_F(TEndingTest, AFullDiskIsToldAndEndsWithTwo)
{
    WriteProject("seq 1 100000");
    for (const bool IsLog : {false, true})
    {
        const TProgramResult Result =
            IsLog ? Run({"run", "--log", "/dev/full"}) : Start({"run"}, {}, "/dev/full").Wait();
        EXPECT_EQ(Result.ExitCode, 2);
        EXPECT_THAT(Result.Out, HasSubstr(IsLog ? "2 succeeded" : ""));
        EXPECT_THAT(Result.Err, HasSubstr("No space left on device"));
    }
    EXPECT_EQ(Start({"list"}, {}, "/dev/full").Wait().ExitCode, 2);
}

TEST_F(TEndingTest, HeldBackLinesThatFindNoRoomAreShortened)
{
    WriteProject("seq 1 200000; exit 1");
    const std::string Log = RunLimited("-f 100", "run --keep-going --quiet");
    EXPECT_THAT(Log, AllOf(HasSubstr("\n  1\n"), HasSubstr("\n  20000\n"), HasSubstr("\n  200000\n"),
                           HasSubstr(" lines were left out: the temporary folder has no room: File too large]\n"),
                           HasSubstr("exit code 1\n")));
    EXPECT_LT(Log.size(), 2'000'000U);
}

TEST_F(TEndingTest, LinesOfASlowToolAreSeenWhileItRuns)
{
    WriteProject("cd ..; echo early; while [ ! -s go ]; do sleep 0.05; done");
    TRunningProgram Program = Start({"run"}, {}, Path("out"));
    const auto Deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (ReadFile("out").find("early") == std::string::npos && std::chrono::steady_clock::now() < Deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_THAT(ReadFile("out"), HasSubstr("  early\n"));
    WriteFile("go", "now");
    EXPECT_EQ(Program.Wait().ExitCode, 0);
}

TEST_F(TEndingTest, AProgramWithoutStandardStreamsRuns)
{
    WriteProject("echo done");
    WriteTool("bare", "exec '" QUEXLEY_BINARY_DIR "/bin/quexley' run --log log <&- >&- 2>&-");
    const std::string Configuration = std::filesystem::path(OptionsFile()).parent_path().parent_path().string();
    const std::string Line = "cd '" + Folder() + "' && HOME=. XDG_CONFIG_HOME='" + Configuration + "' ./bare";
    ASSERT_EQ(std::system(Line.c_str()), 0);
    EXPECT_THAT(ReadFile("log"), HasSubstr("2 succeeded"));
}

TEST_F(TEndingTest, ASizeLimitIsAnErrorThatLeavesSourcesWhole)
{
    const std::string Source = "[assembly: A(\"x\")] //" + std::string(4000, 'c');
    WriteFile("a.cs", Source);
    WriteFile("quexley.toml", "[[action]]\ntype = \"TQXAssemblyInfoUpdaterAction\"\nSelection = [\"a.cs\"]\n"
                              "Attributes = [\"A='y'\"]\nBackupFiles = false\n");
    EXPECT_THAT(RunLimited("-f 4"), AllOf(HasSubstr("The action ended with an error : a.cs: File too large\n"),
                                          HasSubstr("exit code 1\n")));
    EXPECT_EQ(ReadFile("a.cs"), Source);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Folder()), {}), 5) << "something is left";

    WriteFile("other.toml", "#" + Source);
    EXPECT_THAT(RunLimited("-f 4", "options set host.windows_dir x --options other.toml"),
                AllOf(HasSubstr("other.toml: File too large\n"), HasSubstr("exit code 2\n")));
    EXPECT_EQ(ReadFile("other.toml"), "#" + Source);
}

TEST_F(TEndingTest, OptionsSetAtTheSameTimeAreAllKept)
{
    for (int Round = 0; Round < 10; ++Round)
    {
        const std::string Value = std::to_string(100 + Round);
        TRunningProgram First = Start({"options", "set", "host.windows_dir", Value});
        TRunningProgram Second = Start({"options", "set", "host.script_timeout", Value});
        EXPECT_EQ(First.Wait().ExitCode + Second.Wait().ExitCode, 0);
        EXPECT_THAT(ReadFile(OptionsFile()),
                    AllOf(HasSubstr("windows_dir = \"" + Value + "\""), HasSubstr("script_timeout = " + Value)));
    }
}
