#include "tests/acceptance/ProgramTest.h"

#include "gmock/gmock.h"

namespace
{
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

using TCommandLineTest = TProgramTest;

struct TWrongUsage
{
    std::vector<std::string> Arguments;
    std::string Error; ///< part of the message
};
} // namespace

TEST_F(TCommandLineTest, WrongUsageIsToldInOneLineAndEndsWithTwo)
{
    WriteFile("quexley.toml", "[[action]]\ntype = \"TGACListAction\"\nname = \"List\"\n");
    WriteFile("file", "");
    const std::vector<TWrongUsage> Cases = {
        {{"rum"}, "unknown command \"rum\"; did you mean \"run\"?"},
        {{"frobnicate"}, "unknown command \"frobnicate\"\n"},
        {{"run", "--verbos"}, "unknown option \"--verbos\"; did you mean \"--verbose\"?"},
        {{"run", "--forrmat=json"}, "unknown option \"--forrmat\"; did you mean \"--format\"?"},
        {{"run", ".", "extra"}, "unknown argument \"extra\""},
        {{"list", "--quiet"}, "unknown option \"--quiet\""},
        {{"run", "--format", "jso"}, "--format is one of text, json, github, not \"jso\"; did you mean \"json\"?"},
        {{"run", "--format"}, "--format"},
        {{"run", "--color=blue"}, "--color is one of auto, always, never"},
        {{"run", "--set", "NAME"}, "--set wants NAME=VALUE"},
        {{"run", "--set", "=x"}, "--set wants NAME=VALUE"},
        {{"run", "--set", "A B=x"}, "--set wants NAME=VALUE"},
        {{"run", "--quiet", "--verbose"}, "--quiet and --verbose"},
        {{"run", "--from", "Lost"}, "no action \"Lost\"; did you mean \"List\"?"},
        {{"run", "--only", "2"}, "no action \"2\""},
        {{"run", "--resume", "--from", "1"}, "--resume"},
        {{"run", "nowhere"}, "nowhere"},
        {{"run", "--log", "file/log"}, "file/log: Not a directory"},
        {{"run", "--log", "."}, "Is a directory"},
        {{"run", "--registry", "none.reg"}, "none.reg: no such file"},
        {{"run", "--package", "none.so"}, "none.so: cannot be loaded"},
        {{"run", "--package", "quexley.toml"}, "quexley.toml: cannot be loaded"},
        {{"dotnet", "--options", "none.toml"}, "none.toml"},
        {{"show"}, "show wants"},
        {{"show", "TGACListAction", "TSNGenericSN"}, "show wants"},
        {{"show", "TGACLstAction"}, "there is no class \"TGACLstAction\"; did you mean \"TGACListAction\"?"},
        {{"options", "frob"}, "options wants"},
        {{"options", "get"}, "options wants"},
        {{"options", "get", "host.registri"}, "did you mean \"host.registry\"?"},
        {{"options", "set", "host.script_timeout", "soon"}, "host.script_timeout is a whole number, not \"soon\""},
    };
    for (const TWrongUsage& Case : Cases)
    {
        const TProgramResult Result = Run(Case.Arguments);
        EXPECT_EQ(Result.ExitCode, 2) << testing::PrintToString(Case.Arguments);
        EXPECT_THAT(Result.Err, AllOf(StartsWith("quexley: "), HasSubstr(Case.Error)));
        EXPECT_EQ(std::count(Result.Err.begin(), Result.Err.end(), '\n'), 1) << Result.Err;
        EXPECT_THAT(Result.Out, IsEmpty());
    }
    EXPECT_FALSE(HasFile(OptionsFile()));
}

TEST_F(TCommandLineTest, WithoutACommandHelpIsShown)
{
    const TProgramResult Nothing = Run({});
    EXPECT_EQ(Nothing.ExitCode, 2);
    EXPECT_THAT(Nothing.Err, AllOf(HasSubstr("validate"), HasSubstr("--package")));
    const TProgramResult Help = Run({"--help"});
    EXPECT_EQ(Help.ExitCode, 0);
    EXPECT_THAT(Help.Out, AllOf(HasSubstr("dotnet"), HasSubstr("schema")));
    const TProgramResult RunHelp = Run({"run", "--help"});
    EXPECT_EQ(RunHelp.ExitCode, 0);
    for (const std::string Option :
         {"--set", "--from", "--only", "--resume", "--keep-going", "--format", "--log", "--quiet", "--verbose",
          "--color", "--skip-validation", "--dry-run", "--options", "--registry"})
        EXPECT_THAT(RunHelp.Out, HasSubstr(Option));
    const TProgramResult Version = Run({"--version"});
    EXPECT_EQ(Version.ExitCode, 0);
    EXPECT_THAT(Version.Out, testing::MatchesRegex("quexley [0-9.]+\n"));
}

TEST_F(TCommandLineTest, AnEmptyProjectNeedsNeitherPackageNorFiles)
{
    WriteFile("quexley.toml", "");
    WriteFile("bad.toml", "= wrong");
    WriteFile("bad.reg", "wrong");
    const TProgramResult Result =
        Run({"run", "--package", "none.so", "--options", "bad.toml", "--registry", "bad.reg"});
    EXPECT_EQ(Result.ExitCode, 0) << Result.Err;
    EXPECT_EQ(Result.Out, "no action to run\n");
}

TEST_F(TCommandLineTest, FindingsInFilesStandAloneWithTheirPlace)
{
    WriteFile("bad.toml", "[host]\nregistry = 7\n");
    WriteFile("quexley.toml", "[[action]]\ntype = \"TGACInstallAction\"\nForse = true\n");
    struct TCase
    {
        std::vector<std::string> Arguments;
        std::string Begin;
    };
    const std::vector<TCase> Cases = {
        {{"run"}, "quexley.toml:3:1: TGACInstallAction has no property \"Forse\"; did you mean \"Force\"?\n"},
        {{"options", "--options", "bad.toml"}, Path("bad.toml:2:12: ")},
    };
    for (const TCase& Case : Cases)
    {
        const TProgramResult Result = Run(Case.Arguments);
        EXPECT_EQ(Result.ExitCode, 2);
        EXPECT_THAT(Result.Err, StartsWith(Case.Begin));
        EXPECT_THAT(Result.Out, IsEmpty());
    }
}

TEST_F(TCommandLineTest, ARegistryFileThatIsNeededMustBeReadable)
{
    UseStandInTools("\n[host]\nregistry = \"none.reg\"\n");
    WriteFile("bad.reg", "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\n");
    WriteFile("quexley.toml", "[[action]]\ntype = \"TQXCSProjCompilerAction\"\nProjectFile = \"a.csproj\"\n"
                              "ConfigName = \"Debug\"\n");
    WriteFile("a.csproj", R"(<VisualStudioProject><CSHARP ProductVersion="7.10.3077" SchemaVersion="2.0"><Build>
<Settings AssemblyName="a" OutputType="Library"><Config Name="Debug" OutputPath="bin\"/></Settings>
<References><Reference Name="Foo" AssemblyName="Foo" HintPath="Foo.dll" AssemblyFolderKey="hklm\dn\foo"/></References>
</Build><Files><Include/></Files></CSHARP></VisualStudioProject>)");
    const TProgramResult Bad = Run({"run", "--registry", "bad.reg"});
    EXPECT_EQ(Bad.ExitCode, 2) << Bad.Out;
    EXPECT_THAT(Bad.Err, StartsWith(Path("bad.reg:3: ")));
    const TProgramResult Missing = Run({"run"});
    EXPECT_EQ(Missing.ExitCode, 2) << Missing.Out;
    EXPECT_THAT(Missing.Err, HasSubstr("/.config/quexley/none.reg: No such file or directory\n"));
}

TEST_F(TCommandLineTest, AFileOfAnyBytesIsNoProject)
{
    std::string Bytes;
    for (unsigned Value = 1; Bytes.size() < 100000; Value = Value * 1664525U + 1013904223U)
        Bytes.push_back(static_cast<char>(Value >> 24U));
    for (const std::string& Text : {Bytes, std::string("\0\0\0", 3), "[[action]]\n" + std::string(50000, '['),
                                    std::string("[project]\nname = \"\xff\xfe\"\n")})
    {
        WriteFile("quexley.toml", Text);
        const TProgramResult Result = Run({"run"});
        EXPECT_EQ(Result.ExitCode, 2);
        EXPECT_THAT(Result.Err, StartsWith("quexley.toml:"));
    }
}

TEST_F(TCommandLineTest, ListAndShowKnowThePackage)
{
    const TProgramResult List = Run({"list"});
    EXPECT_THAT(List.Out, AllOf(HasSubstr("  TGACInstallAction"), HasSubstr("GAC Install [GACUTIL]"),
                                HasSubstr("  TQXDotNetOptions"), HasSubstr("Microsoft.NET\n")));
    const TProgramResult Json = Run({"list", "--json"});
    EXPECT_THAT(Json.Out,
                AllOf(StartsWith("{\n  \"actions\": [\n"), HasSubstr("\"type\": \"TGACListAction\",\n"
                                                                     "      \"name\": \"GAC Download Cache "
                                                                     "[GACUTIL]\",\n"
                                                                     "      \"category\": \".Net Tools\"\n")));
    const TProgramResult Show = Run({"show", "TGACListAction"});
    EXPECT_THAT(Show.Out, AllOf(HasSubstr("\n  DeleteDownloadCache"), HasSubstr("default \"false\""),
                                Not(HasSubstr("DotNetToolType"))));
    const TProgramResult ShowJson = Run({"show", "TQXCSharpCompilerAction", "--json"});
    EXPECT_THAT(ShowJson.Out,
                AllOf(StartsWith("[\n  {\n    \"name\": \"OverrideSDKDefault\",\n    \"type\": \"boolean\",\n"
                                 "    \"default\": false,\n    \"hidden\": false\n  },\n"
                                 "  {\n    \"name\": \"SDKVersion\",\n    \"type\": \"string\",\n"),
                      HasSubstr("\"type\": \"enumeration\""), HasSubstr("\"Exe\",\n")));
}

TEST_F(TCommandLineTest, OptionsAreSetAndReadBack)
{
    UseStandInTools("\n[host] # mine\nscript_timeout = 5\n");
    EXPECT_EQ(Run({"options", "get", "Microsoft.NET.DefaultSDKVersion"}).Out, "v1.1\n");
    EXPECT_EQ(Run({"options", "get", "host.script_timeout"}).Out, "5\n");
    const std::vector<std::pair<std::string, std::string>> Settings = {{"Microsoft.NET.DefaultSDKVersion", "v9 \"x\""},
                                                                       {"host.windows_dir", "/opt/win"},
                                                                       {"host.script_timeout", "20"},
                                                                       {"host.registry", ""}};
    for (const auto& [Name, Value] : Settings)
    {
        const TProgramResult Result = Run({"options", "set", Name, Value});
        EXPECT_EQ(Result.ExitCode, 0) << Result.Err;
        EXPECT_EQ(Run({"options", "get", Name}).Out, Value + "\n");
    }
    EXPECT_THAT(Run({"options"}).Out, AllOf(HasSubstr("host.windows_dir "), HasSubstr(" = /opt/win\n")));
    EXPECT_THAT(ReadFile(OptionsFile()), HasSubstr("[host] # mine\nscript_timeout = 20\n"));

    WriteFile("other.toml", "");
    EXPECT_EQ(Run({"options", "set", "Microsoft.NET.DefaultSDKVersion", "v2", "--options", "other.toml"}).ExitCode, 0);
    EXPECT_THAT(ReadFile("other.toml"), HasSubstr("DefaultSDKVersion = \"v2\""));
    EXPECT_THAT(ReadFile(OptionsFile()), HasSubstr("/opt/win"));
}

TEST_F(TCommandLineTest, DotNetVersionsAndSchemaAreWritten)
{
    UseStandInTools();
    EXPECT_EQ(Run({"dotnet", "--json"}).Out, "[\n  {\n    \"name\": \"v1.1\",\n    \"framework\": \"" + Path("tools") +
                                                 "\",\n    \"sdk\": \"" + Path("tools") + "\"\n  }\n]\n");
    EXPECT_THAT(Run({"dotnet"}).Out, HasSubstr("v1.1     " + Path("tools") + "  " + Path("tools") + "\n"));
    EXPECT_THAT(Run({"schema"}).Out, AllOf(StartsWith("{"), HasSubstr("TGACInstallAction")));
}
