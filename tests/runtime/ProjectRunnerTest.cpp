#include "runtime/ProjectRunner.h"
#include "platform/Files.h"
#include "platform/Processes.h"
#include "runtime/HostErrors.h"
#include "tests/TempFolder.h"
#include "tests/runtime/TestHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

/// Does what the test says.
class TTestAction final : public TQXAction
{
public:
    explicit TTestAction(std::function<bool(TTestAction&)> Work) : FWork(std::move(Work))
    {
        Publish("PassPhrase", PassPhrase, "Opens the key").Secret();
    }
    bool Validate(IQXActionValidationError& Errors) override
    {
        if (!Finding.empty())
            Errors.AddError("Setting", Finding);
        return IsValid && Finding.empty();
    }
    bool Execute() override { return FWork(*this); }
    void TerminateAction() override { ++Terminations; }

    std::string PassPhrase;
    std::string Finding;
    bool IsValid = true;
    int Terminations = 0;

private:
    std::function<bool(TTestAction&)> FWork;
};

bool Succeed(TTestAction&)
{
    return true;
}
bool Fail(TTestAction&)
{
    return false;
}

class ProjectRunner : public testing::Test
{
public:
    ProjectRunner()
    {
        ::setenv("XDG_STATE_HOME", (Folder / "state").c_str(), 1);
        Project.Name = "Acme";
        Project.Folder = Folder.Path();
        Project.File = Folder / "quexley.toml";
    }
    ~ProjectRunner() override
    {
        ::unsetenv("XDG_STATE_HOME");
        Termination::Reset();
    }

protected:
    TTestAction& Add(std::string Name, std::function<bool(TTestAction&)> Work = Succeed,
                     TOnFailure OnFailure = TOnFailure::Stop)
    {
        auto Action = std::make_unique<TTestAction>(std::move(Work));
        TTestAction& Result = *Action;
        const int Index = static_cast<int>(Project.Actions.size()) + 1;
        Project.Actions.push_back({Index, "TTestAction", std::move(Name), true, OnFailure, 0, std::move(Action)});
        return Result;
    }
    TRunResult Run(TRunOptions Options = {})
    {
        Host.Log = {};
        return TProjectRunner(Project, std::move(Options), Host.Log).Run();
    }
    /// The numbers of the actions that started.
    std::string Started()
    {
        std::string Result;
        for (const std::string& Event : Host.Log.Events)
            if (Event.starts_with("action-started "))
                Result += Event.substr(15);
        return Result;
    }

    TTempFolder Folder;
    TTestHost Host;
    TProject Project;
};

TEST_F(ProjectRunner, TellsARunInOrder)
{
    const std::string Before = Files::CurrentFolder();
    Add("One", [&](TTestAction& Action) {
        Action.SendMessage(Action.ExpandExpression("%projectname% in %ProjectDir%", true));
        return Files::CurrentFolder() == Folder.Path();
    });
    Add("Off").Finding = "never looked at";
    Project.Actions[1].Enabled = false;
    Add("Two", Fail);
    Add("Three");
    EXPECT_EQ(Run(), TRunResult::Failure);
    EXPECT_THAT(Host.Log.Events, ElementsAre("run-started 3", "action-started 1", "message Acme in " + Folder.Path(),
                                             "action-ended 1 success", "action-started 3", "action-ended 3 failure",
                                             "action-ended 4 skipped", "run-ended failure"));
    EXPECT_EQ(Host.Log.EndedActions.back().Reason, "an earlier action failed");
    EXPECT_EQ(Host.Log.Totals.Succeeded * 100 + Host.Log.Totals.Failed * 10 + Host.Log.Totals.Skipped, 111);
    EXPECT_EQ(Files::CurrentFolder(), Before);
}

TEST_F(ProjectRunner, StartsNothingWhenThereAreFindings)
{
    Add("One").Finding = "is missing";
    Add("Two").IsValid = false;
    Add("Three");
    EXPECT_EQ(Run(), TRunResult::Invalid);
    EXPECT_THAT(Host.Log.Events,
                ElementsAre("run-started 3", "validation-error Setting", "validation-error ", "run-ended invalid"));
    EXPECT_EQ(Host.Log.Totals.Skipped, 3);
    EXPECT_EQ(TProjectRunner(Project, {}, Host.Log).Validate(), TRunResult::Invalid);
    EXPECT_EQ(Run({.Only = {"Three"}}), TRunResult::Success);
    EXPECT_EQ(Run({.SkipValidation = true}), TRunResult::Success);
}

TEST_F(ProjectRunner, GoesOnAfterAFailureIfToldSo)
{
    Add("One", Fail, TOnFailure::Continue);
    Add("Two", Fail);
    Add("Three");
    EXPECT_EQ(Run(), TRunResult::Failure);
    EXPECT_EQ(Started(), "12");
    EXPECT_EQ(Run({.KeepGoing = true}), TRunResult::Failure);
    EXPECT_EQ(Started(), "123");
}

TEST_F(ProjectRunner, SelectsActions)
{
    for (const char* Name : {"Clean", "Build", "Test", "Build", "3"})
        Add(Name);
    const std::pair<TRunOptions, const char*> Cases[] = {
        {{}, "12345"},
        {{.From = "Build"}, "2345"},
        {{.From = "3"}, "345"},
        {{.Only = {"Test", "1", "1"}}, "13"},
        {{.Only = {"build"}}, "24"},
        {{.From = "3", .Only = {"Build"}}, "4"},
        {{.Resume = true}, "12345"},
    };
    for (const auto& [Options, Expected] : Cases)
    {
        EXPECT_EQ(Run(Options), TRunResult::Success);
        EXPECT_EQ(Started(), Expected);
    }
    for (const TRunOptions& Options :
         {TRunOptions{.From = "Biuld"}, TRunOptions{.Only = {"6"}}, TRunOptions{.From = "1", .Resume = true}})
        EXPECT_THROW(Run(Options), EUsageError);
    try
    {
        Run({.From = "Biuld"});
    }
    catch (const EUsageError& Error)
    {
        EXPECT_STREQ(Error.what(), "the project has no action \"Biuld\"; did you mean \"Build\"?");
    }
}

TEST_F(ProjectRunner, ResumesWhereTheLastRunEnded)
{
    bool IsBroken = true;
    const auto Work = [&](TTestAction&) { return !IsBroken; };
    Add("One");
    Add("Two", Work);
    Add("Three");
    (void)Run({.DryRun = true});
    (void)Run({.Resume = true});
    EXPECT_EQ(Started(), "12") << "a dry run notes nothing";
    (void)Run({.Resume = true, .KeepGoing = true});
    EXPECT_EQ(Started(), "23");
    (void)Run({.Resume = true});
    EXPECT_EQ(Started(), "2") << "the first failed action counts, not the last one run";
    std::swap(Project.Actions[0], Project.Actions[1]);
    (void)Run({.Resume = true});
    EXPECT_EQ(Started(), "2") << "found by its name in a project that was changed";
    Project.Actions[0].Name = "Renamed";
    IsBroken = false;
    EXPECT_EQ(Run({.Resume = true}), TRunResult::Success);
    EXPECT_EQ(Started(), "213");
    EXPECT_EQ(Host.Log.Messages.size(), 1U);
    EXPECT_EQ(Run({.Resume = true}), TRunResult::Success);
    EXPECT_EQ(Started(), "213") << "success forgets the place";
}

TEST_F(ProjectRunner, RunsWithoutAStateFolder)
{
    Files::Write(Folder / "state", "in the way");
    Add("One");
    Add("Two");
    EXPECT_EQ(Run(), TRunResult::Success);
    EXPECT_THAT(Host.Log.Events, testing::Contains(testing::StartsWith("host-warning :0: The place of this run")));
}

TEST_F(ProjectRunner, EndsOnRequest)
{
    TTestAction& Action = Add("One", [](TTestAction& Self) {
        Termination::Request(2);
        Self.SendMessage("working");
        Self.SendMessage("ending");
        return true;
    });
    Add("Two");
    EXPECT_EQ(Run(), TRunResult::Terminated);
    EXPECT_EQ(Action.Terminations, 1);
    EXPECT_THAT(Host.Log.Events,
                ElementsAre("run-started 2", "action-started 1", "message working", "message ending",
                            "action-ended 1 terminated", "action-ended 2 skipped", "run-ended terminated"));
}

TEST_F(ProjectRunner, KeepsExceptionsInTheirAction)
{
    Add(
        "One", [](TTestAction&) -> bool { throw std::runtime_error("out of luck"); }, TOnFailure::Continue);
    Add("Two");
    EXPECT_EQ(Run(), TRunResult::Failure);
    EXPECT_THAT(Host.Log.Messages, ElementsAre("The action ended with an error : out of luck"));
    EXPECT_EQ(Started(), "12");
}

TEST_F(ProjectRunner, EndsWithTheActionThatNeedsAWrongFile)
{
    for (const bool IsPassedOn : {true, false})
    {
        TTestHost Other;
        Project.Actions.clear();
        Other.SetOptions("[host");
        Add(
            "One",
            [&](TTestAction&) {
                try
                {
                    (void)Other.Runtime.Options();
                }
                catch (const std::exception&)
                {
                    if (IsPassedOn)
                        throw;
                }
                return true;
            },
            TOnFailure::Continue);
        Add("Two");
        EXPECT_EQ(TProjectRunner(Project, {.KeepGoing = true}, Other.Log).Run(), TRunResult::HostError);
        EXPECT_THAT(Other.Log.Events,
                    ElementsAre("run-started 2", "action-started 1", "action-ended 1 failure", "action-ended 2 skipped",
                                testing::StartsWith("host-error options.toml:1: "), "run-ended host error"));
    }
}

TEST_F(ProjectRunner, MasksSecretsAndMendsTexts)
{
    ::setenv("QuexleyTestToken", "from-outside", 1);
    Project.Secrets = {"SIGN", "Lines", "Given", "quexleytesttoken", "Nothing", "Unset", "Mended"};
    Project.Variables = {{"Base", "pass"},
                         {"Sign", "%Base%word"},
                         {"Lines", "line-a\r\nline-b"},
                         {"Nothing", ""},
                         {"Mended", "k\xEF\xBF\xBDy"}};
    Add("password", [](TTestAction& Action) {
        std::string Value;
        Action.SendMessage("password=passwords; from-outside line-b line-a\nline-b");
        Action.SendMessage("set \"gi\"ven\" as \"gi\\\"ven\" and say my-phrase");
        Action.SendMessage("caf\xe9 pass k\xffy");
        const auto Process = CreateQXProcess();
        Process->SetExecutable("/bin/sh");
        Process->SetArguments("-c \"printf %1048570s; echo my-phrase\"");
        TStringList Lines;
        (void)Process->RunCaptured(Lines);
        for (const std::string& Line : Lines.Items())
            Action.SendMessage(Line == std::string(1048570, ' ') ? "1048570 blanks" : Line);
        TQXRuntime::RunningAction()->SendOutput(TQXOutputStream::StdOut, "a.cs(1,2): error X1: password");
        return Action.TryExpandExpression("the password", "password%Unknown%", Value, false);
    }).PassPhrase = "my-phrase";
    EXPECT_EQ(Run({.Overrides = {{"given", "gi\"ven"}}}), TRunResult::Failure);
    EXPECT_THAT(Host.Log.Messages, ElementsAre("***=***s; *** *** ***\n***", "set \"***\" as \"***\" and say ***",
                                               "caf\xef\xbf\xbd pass ***", "1048570 blanks", "***"));
    EXPECT_THAT(Host.Log.Events, testing::Contains("diagnostic X1 ***"));
    EXPECT_EQ(Host.Log.ExpansionErrors.at(0).Label, "the ***");
    EXPECT_EQ(Host.Log.ExpansionErrors.at(0).Text, "***%Unknown%");
}
} // namespace
