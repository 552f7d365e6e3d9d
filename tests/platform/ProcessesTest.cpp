#include "platform/Processes.h"

#include "platform/CommandLines.h"
#include "platform/ProcessLines.h"
#include "tests/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using TClock = std::chrono::steady_clock;

namespace
{
struct TCollector : IProcessListener
{
    void OnStdOutLine(std::string_view Line) override
    {
        Out.emplace_back(Line);
        if (OnLine)
            OnLine();
    }
    void OnStdErrLine(std::string_view Line) override { Errors.emplace_back(Line); }
    void OnTick() override { ++Ticks; }

    std::vector<std::string> Out;
    std::vector<std::string> Errors;
    int Ticks = 0;
    std::function<void()> OnLine;
};

TProcessStart Shell(const std::string& Script)
{
    TProcessStart Start;
    Start.Executable = "/bin/sh";
    Start.Arguments = "-c " + CommandLines::Quote(Script, true);
    return Start;
}

bool IsGone(const std::string& Process)
{
    return ::kill(std::stoi(Process), 0) != 0;
}

class ProcessesTest : public testing::Test
{
public:
    ~ProcessesTest() override { Termination::Reset(); }

protected:
    std::string WriteFile(const std::string& Name, std::string_view Bytes, fs::perms Mode = fs::perms::owner_all)
    {
        Temp.Write(Name, Bytes);
        fs::permissions(Folder / Name, Mode);
        return (Folder / Name).string();
    }
    TProcessEnd Run(const TProcessStart& Start) { return RunProcess(Start, Collector); }
    /// Runs a script that prints the processes that it started, and expects that all of them have ended.
    TProcessEnd RunToItsForcedEnd(const TProcessStart& Start, std::chrono::milliseconds AtMost)
    {
        const auto Begin = TClock::now();
        TProcessEnd End = Run(Start);
        EXPECT_LT(TClock::now() - Begin, AtMost);
        EXPECT_FALSE(Collector.Out.empty());
        for (const std::string& Process : Collector.Out)
            EXPECT_TRUE(IsGone(Process)) << Start.Arguments;
        Collector.Out.clear();
        return End;
    }

    TTempFolder Temp;
    fs::path Folder = Temp.Path();
    TCollector Collector;
};

TEST(ProcessLinesTest, BlocksBecomeLines)
{
    const std::string Long(TLineSplitter::MaximumLength, 'x');
    const std::string Short = Long.substr(1);
    const std::vector<std::pair<std::vector<std::string>, std::vector<std::string>>> Cases = {
        {{}, {}},
        {{"a\nb\n"}, {"a", "b"}},
        {{"\n\r\n\na"}, {"", "", "", "a"}},
        {{"a\r", "\nb", "c", "\n", "\n"}, {"a", "bc", ""}},
        {{"a\rb\r\r\nlast\r"}, {"a\rb\r", "last\r"}},
        {{Long, "\r", "\nnext"}, {Long, "next"}},
        {{Long + "y\r\n"}, {Long, "y"}},
        {{Long, "y", Long, "z"}, {Long, "y" + Short, "xz"}},
        {{Short + "\xE2\x82\xAC"
                  "\n"},
         {Short, "\xE2\x82\xAC"}},
        {{Short.substr(1) + "\xF0\x9F", "\x98\x80", "z"}, {Short.substr(1), "\xF0\x9F\x98\x80z"}},
        {{Short + "\x80\x80\x80\x80\x80"}, {Short + "\x80", "\x80\x80\x80\x80"}},
    };
    for (const auto& [Blocks, Expected] : Cases)
    {
        TLineSplitter Splitter;
        std::vector<std::string> Lines;
        const auto Deliver = [&](std::string_view Line) { Lines.emplace_back(Line); };
        for (const std::string& Block : Blocks)
            Splitter.Add(Block, Deliver);
        Splitter.Finish(Deliver);
        EXPECT_TRUE(Lines == Expected) << "first block: " << (Blocks.empty() ? "" : Blocks[0].substr(0, 20));
    }
}

TEST_F(ProcessesTest, ArgumentsArriveAsTheyWereQuoted)
{
    const std::vector<std::string> Arguments = {
        "plain",  "",          "a blank", "tab\there", "quote\"d",    "\"",      "\\",
        "tail\\", "tail \\\\", "\\\"",    "C:\\a b\\", "$HOME `x` *", "Größe €", "two\nlines"};
    TProcessStart Start;
    Start.Executable = QUEXLEY_FAKES_DIR "/echo_arguments";
    std::vector<std::string> Expected;
    for (const std::string& Argument : Arguments)
    {
        Start.Arguments += " " + CommandLines::Quote(Argument);
        std::string& Shown = Expected.emplace_back();
        for (const char Character : Argument)
            Shown += Character == '\n' ? "\\n" : Character == '\\' ? "\\\\" : std::string(1, Character);
    }
    EXPECT_EQ(Run(Start).ExitCode, 0);
    EXPECT_EQ(Collector.Out, Expected);
}

TEST_F(ProcessesTest, TellsHowTheProcessEnded)
{
    struct TCase
    {
        std::string Script;
        int ExitCode;
        std::string Signal;
    };
    for (const TCase& Case : {TCase{"exit 0", 0, ""}, TCase{"exit 255", 255, ""}, TCase{"kill -KILL $$", 0, "SIGKILL"},
                              TCase{"kill -SEGV $$", 0, "SIGSEGV"}, TCase{"kill -PIPE $$", 0, "SIGPIPE"}})
    {
        const TProcessEnd End = Run(Shell(Case.Script));
        EXPECT_EQ(End.ExitCode, Case.ExitCode) << Case.Script;
        EXPECT_EQ(End.Signal, Case.Signal);
        EXPECT_EQ(End.SignalNumber != 0, !Case.Signal.empty());
        EXPECT_FALSE(End.TimedOut || End.Terminated);
    }
}

TEST_F(ProcessesTest, StartsInItsFolderWithItsEnvironmentAndWithoutInput)
{
    TProcessStart Start = Shell("pwd; echo \"$PROCESS_TEST,${HOME:+home}\"; cat; echo error >&2; printf 'no end'");
    Start.Folder = fs::canonical(Folder).string();
    Start.Environment = {{"PROCESS_TEST", "old"}, {"PROCESS_TEST", "a=b"}};
    EXPECT_EQ(Run(Start).ExitCode, 0);
    EXPECT_THAT(Collector.Out, ElementsAre(Start.Folder, "a=b,home", "no end"));
    EXPECT_THAT(Collector.Errors, ElementsAre("error"));

    WriteFile("tool", "#!/bin/sh\necho here: $0\n");
    Start.Executable = fs::relative(Folder / "tool").string();
    Start.Arguments.clear();
    Start.Folder = "/";
    EXPECT_EQ(Run(Start).ExitCode, 0); // named from our folder, not from its own
    EXPECT_THAT(Collector.Out.back(), HasSubstr("here: "));
}

TEST_F(ProcessesTest, StartsWithDefaultSignals)
{
    Termination::CatchSignals();
    // But for the two that the C library keeps for itself.
    EXPECT_EQ(Run(Shell("for s in SigBlk SigIgn; do"
                        "  m=$(sed -n \"s/$s:[^0-9a-f]*//p\" /proc/self/status); echo $((0x$m & ~0x180000000)); done"))
                  .ExitCode,
              0);
    EXPECT_THAT(Collector.Out, ElementsAre("0", "0"));
    Run(Shell("yes | head -1")); // would go on for ever
    EXPECT_EQ(Collector.Out.back(), "y");
}

TEST_F(ProcessesTest, ReadsBothPipesAtOnce)
{
    constexpr std::size_t Size = 8'000'000;
    struct TCounter : IProcessListener
    {
        void OnStdOutLine(std::string_view Line) override { Out += Line.size() + 1; }
        void OnStdErrLine(std::string_view Line) override { Errors += Line.size() + 1; }
        std::size_t Out = 0;
        std::size_t Errors = 0;
    } Counter;
    const std::string Flood = "yes 0123456 | head -c " + std::to_string(Size);
    EXPECT_EQ(RunProcess(Shell(Flood + " >&2; " + Flood + "; " + Flood + " >&2"), Counter).ExitCode, 0);
    EXPECT_EQ(Counter.Out, Size);
    EXPECT_EQ(Counter.Errors, 2 * Size);
}

TEST_F(ProcessesTest, WhyAProcessDoesNotStart)
{
    const std::string Data = WriteFile("data", "no program");
    const std::string Plain = WriteFile("plain", "#!/bin/sh\n", fs::perms::owner_read);
    const std::string Orphan = WriteFile("orphan", "#!/no/such/interpreter\n");
    const std::string Missing = (Folder / "missing").string();
    const std::vector<std::tuple<std::string, std::string, std::string>> Cases = {
        {Missing, "", Missing + ": no such file or directory"},
        {"no-such-tool-in-path", "", "no-such-tool-in-path: no such file or directory"},
        {"", "", ": no such file or directory"},
        {"data", "", "data: no such file or directory"}, // PATH leads to it from the current folder
        {Plain, "", Plain + ": permission denied"},
        {Folder.string(), "", Folder.string() + ": is a directory"},
        {Data, "", Data + ": exec format error"},
        {Orphan, "", Orphan + ": the interpreter that it names is missing"},
        {"/bin/true", Missing, Missing + ": no such file or directory"},
        {"/bin/true", Data, Data + ": not a directory"},
    };
    const std::string Path = std::getenv("PATH");
    ::setenv("PATH", (Path + "::" + fs::relative(Folder).string()).c_str(), 1);
    for (const auto& [Executable, StartFolder, Message] : Cases)
    {
        TProcessStart Start;
        Start.Executable = Executable;
        Start.Folder = StartFolder;
        try
        {
            Run(Start);
            ADD_FAILURE() << "started: " << Message;
        }
        catch (const EProcessStartError& Error)
        {
            EXPECT_EQ(Error.what(), Message);
        }
    }
    ::setenv("PATH", Path.c_str(), 1);
}

// Scripts that print the processes that they start and then do not end by themselves.
const std::vector<std::string> EndlessScripts = {
    "echo $$; exec sleep 100",
    "sleep 100 & echo $!; sleep 100 & echo $!; wait",
    "setsid sh -c 'echo $$; exec sleep 100' & wait",                       // another session
    "(setsid sh -c 'echo $$; exec sleep 100' &); echo $$; exec sleep 100", // and no parent
    "echo $$; kill -STOP $$",
};

TEST_F(ProcessesTest, TimeLimitEndsTheWholeTree)
{
    for (const std::string& Script : EndlessScripts)
    {
        TProcessStart Start = Shell(Script);
        Start.TimeLimit = 100ms;
        const TProcessEnd End = RunToItsForcedEnd(Start, 1500ms);
        EXPECT_TRUE(End.TimedOut && !End.Terminated) << Script;
        EXPECT_EQ(End.Signal, "SIGTERM");
    }
    for (const char* Script : {"trap '' TERM; echo $$; while :; do sleep 1; done",
                               "trap '' TERM; f() { sleep 0.001; f & }; f & echo $$; while :; do sleep 1; done"})
    {
        TProcessStart Deaf = Shell(Script);
        Deaf.TimeLimit = 100ms;
        EXPECT_EQ(RunToItsForcedEnd(Deaf, 3500ms).Signal, "SIGKILL");
    }
    TProcessStart InTime = Shell("exit 7");
    InTime.TimeLimit = 10s;
    EXPECT_EQ(Run(InTime).ExitCode, 7);
}

TEST_F(ProcessesTest, TerminationEndsTheWholeTree)
{
    Termination::CatchSignals();
    Collector.OnLine = [] { ::raise(SIGINT); };
    for (const std::string& Script : EndlessScripts)
    {
        const TProcessEnd End = RunToItsForcedEnd(Shell(Script), 1500ms);
        EXPECT_TRUE(End.Terminated && !End.TimedOut) << Script;
        Termination::Request(SIGTERM);
        EXPECT_EQ(Termination::Requested(), SIGINT); // the first one counts
        Termination::Reset();
    }
    Termination::Request(SIGTERM);
    EXPECT_TRUE(Run(Shell("echo started")).Terminated);
    EXPECT_TRUE(Collector.Out.empty());
}

TEST_F(ProcessesTest, WakesForARequestWhileTheToolIsSilent)
{
    Termination::CatchSignals();
    const auto Begin = TClock::now();
    EXPECT_TRUE(Run(Shell("kill -HUP $PPID; exec sleep 100")).Terminated);
    EXPECT_LT(TClock::now() - Begin, 1500ms);
    EXPECT_EQ(Termination::Requested(), SIGTERM);
}

TEST_F(ProcessesTest, AnExceptionOfTheListenerEndsTheTree)
{
    for (const std::string& Script : EndlessScripts)
    {
        Collector.OnLine = [] { throw std::out_of_range("from the listener"); };
        EXPECT_THROW(Run(Shell(Script)), std::out_of_range);
        ASSERT_EQ(Collector.Out.size(), 1U) << Script;
        EXPECT_TRUE(IsGone(Collector.Out.front()));
        Collector.Out.clear();
    }
    EXPECT_THROW(Run(Shell("printf 'no end'")), std::out_of_range);
    Collector.OnLine = [this] { Run(Shell("true")); };
    EXPECT_THROW(Run(Shell("echo nested")), std::logic_error);
    Collector.OnLine = nullptr;
    EXPECT_EQ(Run(Shell("exit 4")).ExitCode, 4);
}

TEST_F(ProcessesTest, WaitsShortlyForAChildThatKeepsThePipes)
{
    const auto Begin = TClock::now();
    EXPECT_EQ(Run(Shell("sleep 100 & echo $!; (sleep 0.2; echo late) & exit 3")).ExitCode, 3);
    EXPECT_LT(TClock::now() - Begin, 1900ms);
    ASSERT_EQ(Collector.Out.size(), 2U);
    EXPECT_EQ(Collector.Out[1], "late");
    EXPECT_EQ(::kill(std::stoi(Collector.Out[0]), SIGKILL), 0); // it was left alone
}

TEST_F(ProcessesTest, WhatToolsLeaveIsReaped)
{
    Run(Shell("(setsid true &) ; (setsid sleep 0.2 &) ; sleep 0.1"));
    Run(Shell("sleep 0.3"));
    EXPECT_LE(::waitpid(-1, nullptr, WNOHANG), 0);
}

TEST_F(ProcessesTest, TicksWhileTheProcessRuns)
{
    TProcessStart Start = Shell("sleep 0.2");
    Start.TickInterval = 20ms;
    Run(Start);
    EXPECT_GE(Collector.Ticks, 3);
}

/// The start of a program file as far as it counts here.
std::string ProgramFile(unsigned Magic, unsigned Directories, unsigned CliAddress)
{
    std::string Bytes(0x80 + 24 + 240, '\0');
    const auto Put = [&](std::size_t At, std::size_t Size, unsigned Value) {
        for (std::size_t Index = 0; Index < Size; ++Index)
            Bytes[At + Index] = static_cast<char>(Value >> 8 * Index);
    };
    Bytes.replace(0, 2, "MZ");
    Put(0x3C, 4, 0x80);
    Bytes.replace(0x80, 2, "PE");
    Put(0x80 + 20, 2, 240);
    Put(0x80 + 24, 2, Magic);
    const std::size_t Table = 0x80 + 24 + (Magic == 0x20B ? 112 : 96);
    Put(Table - 4, 4, Directories);
    Put(Table + 14 * 8, 4, CliAddress);
    Put(Table + 14 * 8 + 4, 4, 72);
    return Bytes;
}

TEST_F(ProcessesTest, KnowsDotNetAssemblies)
{
    const std::string Assembly = ProgramFile(0x10B, 16, 0x2008);
    std::string FarAway = Assembly;
    FarAway.replace(0x3C, 4, "\xFF\xFF\xFF\xFF");
    const std::vector<std::pair<std::string, bool>> Cases = {
        {Assembly, true},
        {ProgramFile(0x20B, 16, 0x2008), true},
        {ProgramFile(0x10B, 16, 0), false}, // native
        {ProgramFile(0x10B, 14, 0x2008), false},
        {ProgramFile(0x30B, 16, 0x2008), false},
        {FarAway, false},
        {"", false},
        {"#!/bin/sh\n", false},
    };
    for (const auto& [Bytes, Expected] : Cases)
        EXPECT_EQ(IsDotNetAssembly(WriteFile("tool.exe", Bytes)), Expected);
    for (std::size_t Size = 0; Size < 0x80 + 24 + 96 + 15 * 8; Size += 5)
        EXPECT_FALSE(IsDotNetAssembly(WriteFile("cut.exe", Assembly.substr(0, Size)))) << Size;
    EXPECT_FALSE(IsDotNetAssembly(Folder.string()));
    EXPECT_FALSE(IsDotNetAssembly((Folder / "missing").string()));
}

TEST_F(ProcessesTest, AssembliesStartThroughMono)
{
    TProcessStart Start;
    Start.Executable = WriteFile("a tool.exe", ProgramFile(0x10B, 16, 0x2008));
    Start.Arguments = "/out:\"x y\"";
    const TProcessStart Through = ThroughRuntime(Start);
    EXPECT_EQ(Through.Executable, "mono");
    EXPECT_EQ(Through.Arguments, "\"" + Start.Executable + "\" /out:\"x y\"");
    EXPECT_THAT(Through.Environment, testing::Contains(std::pair<std::string, std::string>("MONO_IOMAP", "all")));
    const TProcessStart Native = ThroughRuntime(Shell("true"));
    EXPECT_EQ(Native.Executable, "/bin/sh");
    EXPECT_TRUE(Native.Environment.empty());
}
} // namespace
