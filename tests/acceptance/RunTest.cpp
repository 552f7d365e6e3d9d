#include "tests/acceptance/ProgramTest.h"

#include "gmock/gmock.h"

#include <regex>

namespace
{
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// A project of GAC actions whose stand-in says what it is told and fails for assemblies called bad.
class TRunTest : public TProgramTest
{
protected:
    TRunTest()
    {
        UseStandInTools();
        WriteStandIn("gacutil.exe", R"(case "$*" in
*bad*) echo "bad.cs(3,7): error CS0103: 100%: no" >&2; exit 3;;
*warn*) echo "a,b.cs(4): warning CS0168: unused";;
esac
echo "did $*")");
    }

    /// One installation per name; "off:" before it is a disabled one, "go:" one that may fail.
    void WriteProject(const std::vector<std::string>& Names, const std::string& Head = "") const
    {
        std::string Text = "[project]\nname = \"Acme\"\n" + Head;
        for (std::string Name : Names)
        {
            Text += "\n[[action]]\ntype = \"TGACInstallAction\"\n";
            if (Name.starts_with("off:"))
                Text += "enabled = false\n";
            if (Name.starts_with("go:"))
                Text += "on_failure = \"continue\"\n";
            Name.erase(0, Name.find(':') + 1);
            Text.append("name = \"").append(Name).append("\"\nAssemblyPath = \"").append(Name).append(".dll\"\n");
        }
        WriteFile("quexley.toml", Text);
    }

    /// What a run says, with the folder as @ and times as #.
    [[nodiscard]] std::string Normal(const std::string& Text) const
    {
        std::string Result = std::regex_replace(Text, std::regex(R"(\d+\.\d s\b)"), "#");
        Result = std::regex_replace(Result, std::regex(R"re("seconds":\d+\.\d+)re"), "\"seconds\":#");
        for (std::size_t At = Result.find(Folder()); At != std::string::npos; At = Result.find(Folder()))
            Result.replace(At, Folder().size(), "@");
        return Result;
    }
};
} // namespace

TEST_F(TRunTest, TextShowsEachActionAndASummary)
{
    WriteProject({"one", "off:two", "bad", "three"});
    const TProgramResult Result = Run({"run"});
    EXPECT_EQ(Result.ExitCode, 1);
    EXPECT_EQ(Normal(Result.Out), R"([1/3] one (TGACInstallAction)
  did /i one.dll
ok       one  #
[2/3] bad (TGACInstallAction)
  bad.cs(3,7): error CS0103: 100%: no
  exit code 3
FAILED   bad  #
skipped  three  (an earlier action failed)

Summary
  ok       one    #
  FAILED   bad    #
  skipped  three  (an earlier action failed)
1 succeeded, 1 failed, 1 skipped in #
)");
    EXPECT_THAT(Result.Err, IsEmpty());
    EXPECT_EQ(ReadFile("received"), "/i\none.dll\n/i\nbad.dll\n");
}

TEST_F(TRunTest, JsonIsOneObjectForEachEvent)
{
    WriteProject({"one", "bad", "three"});
    const TProgramResult Result = Run({"run", "--format", "json"});
    EXPECT_EQ(Result.ExitCode, 1);
    EXPECT_EQ(Normal(Result.Out),
              R"({"event":"run-started","project":"Acme","actions":3}
{"event":"action-started","index":1,"type":"TGACInstallAction","name":"one"}
{"event":"process-started","index":1,"executable":"@/tools/gacutil.exe","folder":"@/tools","arguments":"/i one.dll"}
{"event":"output","index":1,"stream":"stdout","text":"did /i one.dll"}
{"event":"process-ended","index":1,"exit_code":0}
{"event":"action-ended","index":1,"result":"success","seconds":#}
{"event":"action-started","index":2,"type":"TGACInstallAction","name":"bad"}
{"event":"process-started","index":2,"executable":"@/tools/gacutil.exe","folder":"@/tools","arguments":"/i bad.dll"}
{"event":"output","index":2,"stream":"stderr","text":"bad.cs(3,7): error CS0103: 100%: no"}
{"event":"process-ended","index":2,"exit_code":3}
{"event":"action-ended","index":2,"result":"failure","seconds":#}
{"event":"action-ended","index":3,"result":"skipped","seconds":#,"reason":"an earlier action failed"}
{"event":"run-ended","result":"failure","succeeded":1,"failed":1,"skipped":1,"seconds":#}
)");
}

TEST_F(TRunTest, JsonStaysValidWhateverAToolWrites)
{
    WriteStandIn("gacutil.exe", R"(printf 'q"b\\\t\001\033[1m \303\244 \377 end\n\n')");
    WriteProject({"one"});
    EXPECT_THAT(Run({"run", "--format", "json"}).Out, AllOf(HasSubstr(R"("text":"q\"b\\\t\u0001\u001b[1m ä )"
                                                                      "\xEF\xBF\xBD"
                                                                      R"( end"})"),
                                                            HasSubstr(R"("text":""})")));
}

TEST_F(TRunTest, FindingsOfValidationStartNothing)
{
    WriteFile("quexley.toml", "[project]\nname = \"Acme\"\n[[action]]\ntype = \"TGACInstallAction\"\nname = \"one\"\n"
                              "[[action]]\ntype = \"TGACUninstallAction\"\nname = \"two\"\n");
    const std::string Findings = "one: Assembly Path: Assembly path has not been set\n"
                                 "two: Assembly Name: Assembly name has not been set\n";
    for (const auto& [Command, Out] :
         {std::pair("run", Findings + "2 findings; nothing was run\n"), std::pair("validate", Findings)})
    {
        const TProgramResult Result = Run({Command});
        EXPECT_EQ(Result.ExitCode, 3);
        EXPECT_EQ(Result.Out, Out);
    }
    EXPECT_EQ(Normal(Run({"run", "--format", "json", "--only", "two"}).Out),
              R"({"event":"run-started","project":"Acme","actions":1}
{"event":"validation-error","index":2,"type":"TGACUninstallAction","name":"two","label":"Assembly Name","message":"Assembly name has not been set"}
{"event":"run-ended","result":"invalid","succeeded":0,"failed":0,"skipped":1,"seconds":#}
)");
    EXPECT_THAT(Run({"run", "--format", "github", "--only", "two"}).Out,
                HasSubstr("::error title=two::Assembly Name: Assembly name has not been set\n"));
    const TProgramResult Unchecked = Run({"run", "--skip-validation", "--keep-going"});
    EXPECT_EQ(Unchecked.ExitCode, 1);
    EXPECT_THAT(Unchecked.Out, AllOf(HasSubstr("  Assembly Path: \"\": the result is empty\n"),
                                     HasSubstr("0 succeeded, 2 failed, 0 skipped")));
    EXPECT_FALSE(HasFile("received"));
    WriteProject({"one"});
    EXPECT_EQ(Run({"validate"}).Out, "The project is valid.\n");
    EXPECT_THAT(Run({"validate", "--format", "json"}).Out, IsEmpty());
}

TEST_F(TRunTest, QuietShowsOnlyWhatFailed)
{
    WriteProject({"one", "bad"});
    const TProgramResult Result = Run({"run", "--quiet", "--log", "build.log"});
    EXPECT_EQ(Normal(Result.Out), R"([1/2] one (TGACInstallAction)
ok       one  #
[2/2] bad (TGACInstallAction)
  bad.cs(3,7): error CS0103: 100%: no
  exit code 3
FAILED   bad  #

Summary
  ok       one  #
  FAILED   bad  #
1 succeeded, 1 failed, 0 skipped in #
)");
    EXPECT_THAT(ReadFile("build.log"), HasSubstr("\n  did /i one.dll\n"));
}

TEST_F(TRunTest, QuietKeepsAllLinesOfALongFailure)
{
    WriteStandIn("gacutil.exe", "seq 1 200000; exit 1");
    WriteProject({"one"});
    const TProgramResult Result = Run({"run", "--quiet"});
    EXPECT_EQ(std::count(Result.Out.begin(), Result.Out.end(), '\n'), 200000 + 7);
    EXPECT_THAT(Result.Out, AllOf(HasSubstr("(TGACInstallAction)\n  1\n  2\n"), HasSubstr("\n  199999\n  200000\n")));
    WriteStandIn("gacutil.exe", "seq 1 200000");
    EXPECT_THAT(Run({"run", "--quiet"}).Out, Not(HasSubstr("\n  1\n")));
}

TEST_F(TRunTest, VerboseAndDryRunShowWhatIsStarted)
{
    WriteProject({"one"});
    EXPECT_THAT(Normal(Run({"run", "--verbose"}).Out),
                HasSubstr("\n  starting: @/tools/gacutil.exe /i one.dll\n  in folder: @/tools\n  did /i one.dll\n"
                          "  exit code 0\n"));
    WriteFile("received", "");
    WriteProject({"one", "bad"});
    const TProgramResult Result = Run({"run", "--dry-run"});
    EXPECT_EQ(Result.ExitCode, 0);
    EXPECT_THAT(Normal(Result.Out), HasSubstr("\n  would start: @/tools/gacutil.exe /i bad.dll\n"));
    EXPECT_THAT(Run({"run", "--dry-run", "--format=json"}).Out,
                HasSubstr(R"("arguments":"/i bad.dll","dry_run":true})"));
    EXPECT_THAT(ReadFile("received"), IsEmpty());
}

TEST_F(TRunTest, ActionsAreSelected)
{
    WriteProject({"one", "two", "off:three", "four"});
    const std::vector<std::pair<std::vector<std::string>, std::string>> Cases = {
        {{"--from", "2"}, "two four"}, {{"--from", "two"}, "two four"},
        {{"--only", "one"}, "one"},    {{"--only", "4", "--only=one"}, "one four"},
        {{"--only", "three"}, ""},     {{"--from=2", "--only=1", "--only=4"}, "four"},
    };
    for (const auto& [Arguments, Expected] : Cases)
    {
        WriteFile("received", "");
        std::vector<std::string> All = {"run", Path("")};
        All.insert(All.end(), Arguments.begin(), Arguments.end());
        EXPECT_EQ(Run(All).ExitCode, 0);
        const std::string Received = std::regex_replace(ReadFile("received"), std::regex(R"(/i\n|\.dll)"), "");
        std::string Names = std::regex_replace(Received, std::regex("\n"), " ");
        EXPECT_EQ(Names, Expected.empty() ? "" : Expected + " ");
    }
}

TEST_F(TRunTest, FailuresStopOrGoOnAndRunsResume)
{
    WriteProject({"one", "go:bad1", "two", "bad2", "three"});
    EXPECT_THAT(Run({"run"}).Out, HasSubstr("2 succeeded, 2 failed, 1 skipped"));
    const TProgramResult KeptGoing = Run({"run", "--keep-going"});
    EXPECT_EQ(KeptGoing.ExitCode, 1);
    EXPECT_THAT(KeptGoing.Out, HasSubstr("3 succeeded, 2 failed, 0 skipped"));
    const TProgramResult Resumed = Run({"run", "--resume"});
    EXPECT_THAT(Resumed.Out, AllOf(testing::StartsWith("[1/4] bad1"), HasSubstr("1 succeeded, 2 failed, 1 skipped")));
    WriteProject({"one", "two"});
    EXPECT_EQ(Run({"run"}).ExitCode, 0);
    EXPECT_THAT(Run({"run", "--resume"}).Out, HasSubstr("2 succeeded"));
}

TEST_F(TRunTest, GitHubGetsGroupsAndAnnotations)
{
    WriteFile("tools/sub/a,b.cs", "");
    WriteStandIn("gacutil.exe", "echo 'sub/a,b.cs(4): warning CS0168: unused'\n"
                                R"(printf '%s\n' 'C:\x (86)\bad.cs(3,7): error CS0103: 100%: no'; exit 3)");
    WriteProject({"b:a,d"});
    const TProgramResult Result = Run({"run", "--format", "github"});
    EXPECT_EQ(Normal(Result.Out), R"(::group::[1/1] a,d (TGACInstallAction)
  sub/a,b.cs(4): warning CS0168: unused
::warning file=tools/sub/a%2Cb.cs,line=4,title=CS0168::unused
  C:\x (86)\bad.cs(3,7): error CS0103: 100%: no
::error file=C%3A\x (86)\bad.cs,line=3,col=7,title=CS0103::100%25: no
  exit code 3
::endgroup::
FAILED   a,d  #
::error title=a%2Cd::The action failed.

Summary
  FAILED   a,d  #
0 succeeded, 1 failed, 0 skipped in #
)");
}

TEST_F(TRunTest, ColourIsAskedForOrLeftAway)
{
    WriteProject({"bad", "warn"});
    struct TCase
    {
        std::vector<std::string> Arguments;
        TPairs Environment;
        bool Colour;
    };
    const std::vector<TCase> Cases = {
        {{}, {}, false},
        {{"--color", "always"}, {{"NO_COLOR", "1"}}, true},
        {{}, {{"FORCE_COLOR", "1"}}, true},
        {{}, {{"FORCE_COLOR", "0"}}, false},
        {{}, {{"NO_COLOR", "1"}, {"FORCE_COLOR", "1"}}, false},
        {{}, {{"NO_COLOR", ""}, {"FORCE_COLOR", "1"}}, true},
        {{"--color=never"}, {{"FORCE_COLOR", "1"}}, false},
        {{"--format=json"}, {{"FORCE_COLOR", "1"}}, false},
    };
    for (const TCase& Case : Cases)
    {
        std::vector<std::string> Arguments = {"run", "--keep-going", "--log", "log"};
        Arguments.insert(Arguments.end(), Case.Arguments.begin(), Case.Arguments.end());
        const std::string Out = Run(Arguments, Case.Environment).Out;
        EXPECT_EQ(Out.find('\033') != std::string::npos, Case.Colour) << Out;
        if (Case.Colour)
        {
            EXPECT_THAT(Out, AllOf(HasSubstr("  \033[31mbad.cs(3,7): error CS0103: 100%: no\033[0m\n"),
                                   HasSubstr("  \033[33ma,b.cs(4): warning CS0168: unused\033[0m\n")));
        }
        EXPECT_THAT(ReadFile("log"), Not(HasSubstr("\033")));
    }
}

TEST_F(TRunTest, SecretsReachNoFormat)
{
    WriteProject({"%Token%"}, "secrets = [\"token\"]\n[variables]\nToken = \"hush-hush\"\n");
    for (const std::string Format : {"text", "json", "github"})
        for (const std::string Set : {"--set=X=1", "--set=TOKEN=other-hush"})
        {
            const TProgramResult Result = Run({"run", "--verbose", "--format", Format, "--log", "log", Set});
            EXPECT_EQ(Result.ExitCode, 0);
            EXPECT_THAT(Result.Out + ReadFile("log"), AllOf(Not(HasSubstr("-hush")), HasSubstr("/i ***.dll")));
        }
    EXPECT_THAT(ReadFile("received"), AllOf(HasSubstr("hush-hush.dll"), HasSubstr("other-hush.dll")));
}
