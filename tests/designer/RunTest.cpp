#include "apps/designer/QtText.h"
#include "tests/designer/DesignerTest.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <utility>

namespace
{
class DesignerRun : public TDesignerTest
{
protected:
    /// A project whose one action runs a script as its tool.
    void OpenWithTool(const std::string& Script)
    {
        const std::string Tool = Folder().Write("tool", "#!/bin/sh\n" + Script);
        std::filesystem::permissions(Tool, std::filesystem::perms::owner_all);
        Folder().Write("options.toml", "[NUnit]\nNUnitLocation = '" + Tool + "'\n");
        Open("[[action]]\ntype = 'TQXNUnitAction'\nUseProjectFile = false\nAssemblies = ['a.dll']\n");
    }
    void RunToEnd()
    {
        Window().Run(TRunController::TKind::Run, TRunController::TScope::All);
        ASSERT_TRUE(WaitUntil([&] { return !Window().Runs().IsRunning(); }));
    }
    /// What the log says, and what kind of line it is.
    std::vector<std::pair<TLogLine::TKind, std::string>> Log()
    {
        std::vector<std::pair<TLogLine::TKind, std::string>> Lines;
        const TLogBuffer& Buffer = Window().RunPanel().Log().Lines();
        Lines.reserve(static_cast<std::size_t>(Buffer.Count()));
        for (int Line = 0; Line < Buffer.Count(); ++Line)
            Lines.emplace_back(Buffer[Line].Kind, FromQt(Buffer[Line].Text));
        return Lines;
    }
    bool LogHas(TLogLine::TKind Kind, const std::string& Text)
    {
        const auto Lines = Log();
        return std::find(Lines.begin(), Lines.end(), std::pair(Kind, Text)) != Lines.end();
    }
};

/// The resident memory of this process, in MiB.
std::size_t MemoryInUse()
{
    std::ifstream Stream("/proc/self/statm");
    std::size_t Pages = 0;
    Stream >> Pages >> Pages;
    return Pages * 4096 / (1024 * 1024);
}

/// What this thread has worked, in milliseconds: what others on the machine take does not count.
qint64 Worked()
{
    timespec Time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &Time);
    return Time.tv_sec * 1000 + Time.tv_nsec / 1'000'000;
}
} // namespace

TEST_F(DesignerRun, ShowsTheLogAndWhereItFailed)
{
    OpenWithTool("echo building\necho \"a.cs(3,7): error CS1002: ; expected\"\nexit 3\n");
    Window().List().Select({0});
    Window().List().ToggleEnabled();
    Window().List().ToggleEnabled();
    Document().Undo();
    Document().Undo();
    RunToEnd();
    EXPECT_TRUE(LogHas(TLogLine::TKind::Output, "building"));
    EXPECT_TRUE(LogHas(TLogLine::TKind::Error, "a.cs(3,7): error CS1002: ; expected"));
    ASSERT_FALSE(Window().Problems().Problems().empty());
    EXPECT_EQ(Window().Problems().Problems()[0].Action, 1);
    EXPECT_TRUE(Window().List().Model().index(1, TActionListModel::StateColumn).data().toString().startsWith("failed"));
    Window().List().Select({});
    Window().RunPanel().Log().FindProblem(1);
    Window().RunPanel().Log().setFocus();
    Command("Return");
    EXPECT_EQ(Window().List().Current(), 0) << "an error leads to its action";
}

/// Asked, also one that does not listen, and by force.
TEST_F(DesignerRun, StopsATool)
{
    for (const auto& [Script, Times] : {std::pair("exec sleep 1000", 1),
                                        {"trap '' TERM INT HUP\nwhile true; do sleep 1; done", 1},
                                        {"trap '' TERM INT HUP\nwhile true; do sleep 1; done", 2}})
    {
        OpenWithTool(std::string("echo started\n") + Script + "\n");
        Window().Run(TRunController::TKind::Run, TRunController::TScope::All);
        ASSERT_TRUE(WaitUntil([&] { return LogHas(TLogLine::TKind::Output, "started"); }));
        for (int Time = 0; Time < Times; ++Time)
            Window().Runs().Stop();
        ASSERT_TRUE(WaitUntil([&] { return !Window().Runs().IsRunning(); }));
        EXPECT_EQ(Window().List().Model().index(1, TActionListModel::StateColumn).data().toString(), QString("ended"));
        EXPECT_EQ(LogHas(TLogLine::TKind::Error, "The run was ended by force."), Times == 2);
    }
}

TEST_F(DesignerRun, AMillionLinesLeaveTheWindowAtHandAndMemoryBounded)
{
    OpenWithTool("seq -f 'a.cs(%.0f,1): error CS1002: ; expected, said a tool' 1000000\n");
    const std::size_t Before = MemoryInUse();
    QElapsedTimer SinceBeat;
    SinceBeat.start();
    qint64 LongestGap = 0;
    qint64 LongestWork = 0;
    qint64 WorkedBefore = Worked();
    QTimer Beat;
    Beat.setInterval(5);
    QObject::connect(&Beat, &QTimer::timeout, [&] {
        LongestGap = std::max(LongestGap, SinceBeat.restart());
        LongestWork = std::max(LongestWork, Worked() - std::exchange(WorkedBefore, Worked()));
    });
    Beat.start();
    RunToEnd();
    const TLogBuffer& Lines = Window().RunPanel().Log().Lines();
    EXPECT_EQ(static_cast<std::size_t>(Lines.Count()), TLogBuffer::MaximumLines);
    EXPECT_GT(Lines.Gone(), 900'000);
    const std::size_t More = MemoryInUse() - Before;
    RecordProperty("LongestGap", static_cast<int>(LongestGap));
    RecordProperty("LongestWork", static_cast<int>(LongestWork));
    RecordProperty("MebibytesMore", static_cast<int>(More));
#if !defined(__SANITIZE_ADDRESS__) // it takes time and keeps what was freed
    EXPECT_LT(LongestWork, 100);
    EXPECT_LT(LongestGap, 500);
    EXPECT_LT(More, 150U);
#endif
}
