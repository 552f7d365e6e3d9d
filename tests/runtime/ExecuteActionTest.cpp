#include "platform/Files.h"
#include "platform/Processes.h"
#include "tests/TempFolder.h"
#include "tests/runtime/TestHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

/// Runs the shell with a script; writes down its steps.
class TShellAction final : public TQXExecuteAbstractAction
{
public:
    TShellAction() { LogOutput = true; }

    bool BeforeGetCommandLine() override { return Step("BeforeGetCommandLine"); }
    bool GetCommandLine(ICommandLineBuilder& Builder) override
    {
        Builder.AddArgument("-c", Script, amQuoted);
        return Step("GetCommandLine");
    }
    bool AfterGetCommandLine() override { return Step("AfterGetCommandLine"); }
    std::string GetExecutable() override
    {
        (void)Step("GetExecutable");
        return Executable;
    }
    std::string GetStartingDir(const std::string& Exe) override
    {
        (void)Step("GetStartingDir " + Exe);
        return Folder;
    }
    bool BeforeExecute(ICommandLineBuilder& Builder) override
    {
        return Step("BeforeExecute " + Builder.GetCommandLineText());
    }
    bool InterpretResult(int ExitCode) override
    {
        (void)Step("InterpretResult " + std::to_string(ExitCode));
        return ExitCode == GoodExitCode;
    }
    void OnSuccess(int ExitCode) override { (void)Step("OnSuccess " + std::to_string(ExitCode)); }
    void OnFailure(int ExitCode) override { (void)Step("OnFailure " + std::to_string(ExitCode)); }
    void TerminateAction() override { (void)Step("TerminateAction"); }
    void DropOutput() { LogOutput = false; }

    std::string Script = "exit 0";
    std::string Executable = "/bin/sh";
    std::string Folder = "/";
    std::string FailingStep;
    int GoodExitCode = 0;
    std::vector<std::string> Steps;

private:
    bool Step(const std::string& Name)
    {
        Steps.push_back(Name);
        return !FailingStep.starts_with(Name.substr(0, Name.find(' '))) || FailingStep.empty();
    }
};

class ExecuteAction : public testing::Test
{
public:
    ~ExecuteAction() override { Termination::Reset(); }

protected:
    TTestHost Host;
    TShellAction Action;
};

TEST_F(ExecuteAction, TakesTheStepsInOrder)
{
    EXPECT_TRUE(Host.Execute(Action));
    EXPECT_THAT(Action.Steps, ElementsAre("BeforeGetCommandLine", "GetCommandLine", "AfterGetCommandLine",
                                          "GetExecutable", "GetStartingDir /bin/sh", "BeforeExecute -c \"exit 0\"",
                                          "InterpretResult 0", "OnSuccess 0"));
    for (const char* Failing : {"BeforeGetCommandLine", "GetCommandLine", "AfterGetCommandLine", "BeforeExecute"})
    {
        TShellAction Other;
        Other.FailingStep = Failing;
        EXPECT_FALSE(Host.Execute(Other));
        EXPECT_TRUE(Other.Steps.back().starts_with(Failing)) << Other.Steps.back();
    }
    EXPECT_EQ(Host.Log.ProcessStarts.size(), 1U);
}

TEST_F(ExecuteAction, TurnsTheProcessIntoEvents)
{
    Action.Script = "echo one; echo two >&2; pwd; exit 3";
    Action.Executable = "/BIN/sh";
    Action.Folder = "/usr/";
    Action.GoodExitCode = 3;
    EXPECT_TRUE(Host.Execute(Action));
    EXPECT_EQ(Files::Find(Host.Log.ProcessStarts.at(0).Executable), Files::Find("/bin/sh"));
    EXPECT_EQ(Host.Log.ProcessStarts.at(0).Folder, "/usr");
    EXPECT_EQ(Host.Log.ProcessStarts.at(0).Arguments, "-c \"" + Action.Script + "\"");
    EXPECT_THAT(Host.Log.OutputLines, testing::UnorderedElementsAre("one", "two", "/usr"));
    EXPECT_THAT(Host.Log.ErrorLines, ElementsAre("two"));
    EXPECT_EQ(Host.Log.Events.back(), "process-ended 3");
    Action.DropOutput();
    EXPECT_TRUE(Host.Execute(Action));
    EXPECT_EQ(Host.Log.OutputLines.size(), 3U);
}

TEST_F(ExecuteAction, SaysWhyNothingWasStarted)
{
    struct TCase
    {
        const char* Executable;
        const char* Folder;
        const char* Message;
    };
    for (const TCase& Case :
         {TCase{"/no/tool.exe", "", "The executable was not found : /no/tool.exe"},
          TCase{"", "", "The executable was not found : "}, TCase{"/usr", "", "The executable was not found : /usr"},
          TCase{"/bin/sh", "/no/such/", "The starting directory does not exist : /no/such/"}})
    {
        Action.Executable = Case.Executable;
        Action.Folder = Case.Folder;
        Host.Log.Messages.clear();
        EXPECT_FALSE(Host.Execute(Action));
        EXPECT_THAT(Host.Log.Messages, ElementsAre(Case.Message));
    }
    Action.Executable = "/etc/passwd";
    Action.Folder = "";
    Host.Log.Messages.clear();
    EXPECT_FALSE(Host.Execute(Action));
    ASSERT_EQ(Host.Log.Messages.size(), 1U);
    EXPECT_THAT(Host.Log.Messages[0], testing::HasSubstr("/etc/passwd"));
}

TEST_F(ExecuteAction, FailsWhenItsToolIsCutOff)
{
    Host.Settings.TimeLimit = std::chrono::seconds(1);
    Action.Script = "exec sleep 60";
    Action.GoodExitCode = 124;
    EXPECT_FALSE(Host.Execute(Action));
    EXPECT_TRUE(Host.Log.ProcessEnds.at(0).TimedOut);
    EXPECT_THAT(Host.Log.Messages, ElementsAre("The tool was ended after its time limit of 1 seconds"));
    EXPECT_EQ(Action.Steps.back(), "OnFailure 124");

    Action.Script = "kill -SEGV $$";
    EXPECT_FALSE(Host.Execute(Action));
    EXPECT_EQ(Host.Log.ProcessEnds.at(1).Signal, "SIGSEGV");
    EXPECT_EQ(Host.Log.Messages.back(), "The tool was ended by the signal SIGSEGV");
    EXPECT_EQ(Action.Steps.back(), "OnFailure 139");

    Termination::Request(15);
    Action.GoodExitCode = 143;
    EXPECT_FALSE(Host.Execute(Action));
    EXPECT_EQ(Host.Log.ProcessStarts.size(), 2U) << "nothing starts once the end is requested";
    EXPECT_EQ(Action.Steps.back(), "OnFailure 143");
}

TEST_F(ExecuteAction, OnlyShowsUnderADryRun)
{
    const TTempFolder Folder;
    Files::Write(Folder / "my args.rsp", "/a\n/b");
    Host.Settings.Plan = &Host.Plan;
    Action.Script = "touch made";
    Action.Folder = Folder.Path();
    EXPECT_TRUE(Host.Execute(Action));
    EXPECT_FALSE(Files::FileExists(Folder / "made"));
    EXPECT_TRUE(Host.Log.ProcessStarts.at(0).DryRun);
    EXPECT_EQ(Host.Log.ProcessStarts.at(0).ResponseFile, std::nullopt);
    EXPECT_THAT(Host.Log.ProcessEnds, IsEmpty());

    const auto Connection = Host.Connect(Action);
    const auto Process = CreateQXProcess();
    Process->SetExecutable("/bin/sh");
    Process->SetStartDirectory(Folder.Path());
    Process->SetArguments("/x @\"my args.rsp\"");
    EXPECT_EQ(Process->Run(), 0);
    EXPECT_EQ(Host.Log.ProcessStarts.at(1).ResponseFile, "/a\n/b");
}

TEST_F(ExecuteAction, CapturesLinesAndWorksWithoutAHost)
{
    const auto Process = CreateQXProcess();
    Process->SetExecutable("/bin/sh");
    Process->SetArguments("-c \"echo out; echo err >&2; exit 5\"");
    TStringList Lines{"before"};
    EXPECT_EQ(Process->RunCaptured(Lines), 5);
    EXPECT_THAT(Lines.Items(), testing::UnorderedElementsAre("before", "out", "err"));
    {
        const auto Connection = Host.Connect(Action);
        EXPECT_EQ(Process->RunCaptured(Lines), 5);
    }
    EXPECT_THAT(Host.Log.Events, ElementsAre("process-started /bin/sh", "process-ended 5"));
    Process->SetExecutable("/no/such/tool");
    EXPECT_THROW((void)Process->Run(), EQXProcessError);
}

TEST_F(ExecuteAction, ReportsWhatCannotBeExpanded)
{
    Host.Variables.SetProjectVariables({{"Empty", ""}, {"Name", "value"}});
    const auto Connection = Host.Connect(Action);
    std::string Value = "kept";
    EXPECT_TRUE(Action.TryExpandExpression("Label", "%Name%", Value, true));
    EXPECT_TRUE(Action.TryExpandExpression("Label", "%Empty%", Value, false));
    EXPECT_FALSE(Action.TryExpandExpression("Label A", "%Empty%", Value, true));
    EXPECT_FALSE(Action.TryExpandExpression("Label B", "x%Gone%", Value, false));
    ASSERT_EQ(Host.Log.ExpansionErrors.size(), 2U);
    EXPECT_EQ(Host.Log.ExpansionErrors[0].Label, "Label A");
    EXPECT_EQ(Host.Log.ExpansionErrors[0].Reason, "the result is empty, as the variable \"Empty\" is");
    EXPECT_EQ(Host.Log.ExpansionErrors[1].Text, "x%Gone%");
    EXPECT_EQ(Host.Log.ExpansionErrors[1].Reason, "unknown variable \"Gone\"");
    EXPECT_EQ(Action.ExpandExpression("%Name%", true), "value");
    EXPECT_EQ(Action.ExpandExpression("%Gone%", false), "%Gone%");
    EXPECT_THAT(Host.Log.Messages, IsEmpty());
    EXPECT_EQ(Action.ExpandExpression("%Gone%", true), "%Gone%");
    EXPECT_THAT(Host.Log.Messages, ElementsAre("Could not expand \"%Gone%\" : unknown variable \"Gone\""));
}

TEST_F(ExecuteAction, ReportsAScriptThatNoEngineRuns)
{
    TQXScript& Script = Action.AddScript("OnTest");
    const auto Connection = Host.Connect(Action);
    EXPECT_TRUE(Action.ExecuteScript("OnTest"));
    EXPECT_FALSE(Action.ExecuteScript("OnOther"));
    EXPECT_THAT(Host.Log.Events, IsEmpty());
    Script.SetText("x = 1;");
    EXPECT_FALSE(Action.ExecuteScript("OnTest"));
    EXPECT_EQ(Host.Log.ScriptErrors.at(0).Reason, "this build of the host has no script engine");
}
} // namespace
