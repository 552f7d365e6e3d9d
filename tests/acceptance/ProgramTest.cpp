#include "tests/acceptance/ProgramTest.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <thread>

namespace fs = std::filesystem;

namespace
{
constexpr const char* Program = QUEXLEY_BINARY_DIR "/bin/quexley";

/// What stands in a file; nothing for a device or a pipe.
std::string ReadWhole(const std::string& File)
{
    if (!fs::is_regular_file(File))
        return {};
    std::ifstream Stream(File, std::ios::binary);
    return {std::istreambuf_iterator<char>(Stream), {}};
}

std::vector<char*> Pointers(std::vector<std::string>& Texts)
{
    std::vector<char*> Result;
    Result.reserve(Texts.size() + 1);
    for (std::string& Text : Texts)
        Result.push_back(Text.data());
    Result.push_back(nullptr);
    return Result;
}
} // namespace

std::string ReadDocument(const std::string& Page)
{
    const std::string Text = ReadWhole(QUEXLEY_SOURCE_DIR "/docs/" + Page);
    EXPECT_FALSE(Text.empty()) << Page;
    return Text;
}

TRunningProgram::~TRunningProgram()
{
    if (FEnded)
        return;
    ::kill(FProcessID, SIGKILL);
    ::waitpid(FProcessID, &FStatus, 0);
}

void TRunningProgram::Send(int Signal) const
{
    ::kill(FProcessID, Signal);
}

bool TRunningProgram::HasEnded()
{
    FEnded = FEnded || ::waitpid(FProcessID, &FStatus, WNOHANG) == FProcessID;
    return FEnded;
}

bool TRunningProgram::WaitForFile(const std::string& File)
{
    const auto Deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (ReadWhole(File).empty())
    {
        if (HasEnded() || std::chrono::steady_clock::now() > Deadline)
            return !ReadWhole(File).empty();
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

TProgramResult TRunningProgram::Wait()
{
    const auto Deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!HasEnded())
    {
        if (std::chrono::steady_clock::now() > Deadline)
        {
            ADD_FAILURE() << "the program does not end";
            Send(SIGKILL);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    const int ExitCode = WIFEXITED(FStatus) ? WEXITSTATUS(FStatus) : 128 + WTERMSIG(FStatus);
    return {ExitCode, ReadWhole(FOutFile), ReadWhole(FErrFile)};
}

TProgramTest::TProgramTest()
{
    fs::create_directories(FFolder);
    fs::create_directories(FBase + "/home/.config");
}

void TProgramTest::WriteFile(const std::string& Name, const std::string& Text) const
{
    const fs::path File = fs::path(FFolder) / Name;
    fs::create_directories(File.parent_path());
    std::ofstream(File, std::ios::binary) << Text;
}

std::string TProgramTest::ReadFile(const std::string& Name) const
{
    return ReadWhole((fs::path(FFolder) / Name).string());
}

bool TProgramTest::HasFile(const std::string& Name) const
{
    return fs::exists(fs::path(FFolder) / Name);
}

void TProgramTest::WriteTool(const std::string& Name, const std::string& Script) const
{
    WriteFile(Name, "#!/bin/sh\n" + Script + "\n");
    fs::permissions(Path(Name), fs::perms::owner_all);
}

void TProgramTest::CopySources(const std::string& From) const
{
    static const std::set<std::string> Left = {"bin", "dist", "obj", "qxresp.rsp", "Acme.snk", "Acme.Core.xml"};
    const fs::path Source = fs::path(QUEXLEY_SOURCE_DIR) / From;
    for (fs::recursive_directory_iterator Entry(Source), End; Entry != End; ++Entry)
        if (Left.contains(Entry->path().filename()))
            Entry.disable_recursion_pending();
        else if (Entry->is_directory())
            fs::create_directory(Folder() / fs::relative(Entry->path(), Source));
        else
            fs::copy(Entry->path(), Folder() / fs::relative(Entry->path(), Source));
}

void TProgramTest::UseStandInTools(const std::string& More) const
{
    fs::create_directories(Path("tools"));
    WriteFile(OptionsFile(), "[dotnet]\ndetect = false\n\n[dotnet.\"v1.1\"]\nframework = '" + Path("tools") +
                                 "'\nsdk = '" + Path("tools") + "'\n" + More);
}

void TProgramTest::WriteStandIn(const std::string& Name, const std::string& Script) const
{
    WriteTool("tools/" + Name,
              "for Argument; do printf '%s\\n' \"$Argument\"; done >> '" + Path("received") + "'\n" + Script);
}

std::string TProgramTest::Shell(const std::string& Command) const
{
    const std::string Line = "cd '" + Folder() + "' && (" + Command + ") > shell-output 2>&1";
    EXPECT_EQ(std::system(Line.c_str()), 0) << ReadFile("shell-output");
    return ReadFile("shell-output");
}

TProgramResult TProgramTest::Run(const std::vector<std::string>& Arguments, const TPairs& Environment) const
{
    return Start(Arguments, Environment).Wait();
}

TRunningProgram TProgramTest::Start(const std::vector<std::string>& Arguments, const TPairs& Environment,
                                    const std::string& OutFile) const
{
    std::vector<std::string> Words = {Program};
    Words.insert(Words.end(), Arguments.begin(), Arguments.end());
    std::vector<std::string> Variables = {"PATH=" + std::string(std::getenv("PATH")),
                                          "LANG=C.UTF-8",
                                          "HOME=" + FBase + "/home",
                                          "XDG_CONFIG_HOME=" + FBase + "/home/.config",
                                          "XDG_STATE_HOME=" + FBase + "/home/.local/state",
                                          "XDG_CACHE_HOME=" + FBase + "/home/.cache",
                                          "TMPDIR=" + FBase};
    for (const auto& [Name, Value] : Environment)
        Variables.emplace_back(Name).append("=").append(Value);

    const std::string Out = OutFile.empty() ? FBase + "/stdout" : OutFile;
    const std::string Err = FBase + "/stderr";
    posix_spawn_file_actions_t Actions;
    ::posix_spawn_file_actions_init(&Actions);
    ::posix_spawn_file_actions_addopen(&Actions, 0, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&Actions, 1, Out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    ::posix_spawn_file_actions_addopen(&Actions, 2, Err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    ::posix_spawn_file_actions_addchdir_np(&Actions, FFolder.c_str());
    pid_t ProcessID = 0;
    const int Failure =
        ::posix_spawn(&ProcessID, Program, &Actions, nullptr, Pointers(Words).data(), Pointers(Variables).data());
    ::posix_spawn_file_actions_destroy(&Actions);
    if (Failure != 0)
        throw std::runtime_error(std::string("cannot start ") + Program);
    return {ProcessID, Out, Err};
}
