// The example solution, and projects in folders of many names, built by the real tools where they are. Other
// languages and dry runs are in data/example.txt.
#include "tests/DataFile.h"
#include "tests/acceptance/ProgramTest.h"

#include "gmock/gmock.h"

#include <filesystem>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;

namespace
{
class TFolderNamesTest : public TProgramTest
{
protected:
    void WriteProject(const std::string& Name) const
    {
        const std::string Work = Path("in/") + Name;
        for (const char* Part : {"/src/", "/../../lib/"})
            fs::create_directories(Work + Part + Name);
        fs::copy_file(Path("Kit.dll"), Path("lib/" + Name + "/Kit.dll"));
        WriteFile("lib/" + Name + "/text.txt", "text");
        WriteFile(Work + "/quexley.toml", "[[action]]\ntype = 'TQXCSProjCompilerAction'\nProjectFile = 'App.csproj'\n"
                                          "ConfigName = 'Debug'\nCopyConfigFiles = true\n");
        WriteFile(Work + "/app.config", "<configuration/>");
        WriteFile(Work + "/src/" + Name + "/Main.cs", Program);
        const std::string Escaped = std::regex_replace(Name, std::regex("\""), "&quot;");
        WriteFile(Work + "/App.csproj", std::regex_replace(Project, std::regex("NAME"), Escaped));
    }

private:
    const std::string Program = "class App { static void Main() { System.Console.WriteLine(Kit.Name + "
                                "typeof(App).Assembly.GetManifestResourceNames()[0]); } }";
    const std::string Project = R"(<V><CSHARP SchemaVersion="2.0"><Build><Settings AssemblyName="App" OutputType="Exe">
<Config Name="Debug" OutputPath="bin\NAME\" DocumentationFile="doc\NAME\App.xml" WarningLevel="4"/></Settings>
<References><Reference AssemblyName="Kit" HintPath="..\..\lib\NAME\Kit.dll"/></References></Build><Files><Include>
<File RelPath="..\..\lib\NAME\text.txt" BuildAction="EmbeddedResource"/>
<File RelPath="src\NAME\Main.cs" BuildAction="Compile"/></Include></Files></CSHARP></V>)";
};

class TExampleTest : public TProgramTest
{
protected:
    TExampleTest()
    {
        CopySources("examples/acme");
        WriteFile(OptionsFile(), "[NUnit]\nNUnitLocation = '" + NUnit + "'\n");
    }
    bool HasTools() const
    {
        const std::string Mono = "/usr/lib/mono/4.5/";
        return fs::exists(Mono + "mcs.exe") && fs::exists(Mono + "lc.exe") && fs::exists(Mono + "al.exe") &&
               fs::exists(NUnit);
    }

    /// Every file and folder with the time of its last change.
    std::map<std::string, fs::file_time_type> Tree() const
    {
        std::map<std::string, fs::file_time_type> Result = {{".", fs::last_write_time(Folder())}};
        for (const auto& Entry : fs::recursive_directory_iterator(Folder()))
            Result[Entry.path().string()] = Entry.last_write_time();
        return Result;
    }

    /// The JSON lines of the processes that a run starts. The text of a response file, which only dry runs show, is
    /// taken from the disk for others.
    std::vector<std::string> Starts(const std::string& Output) const
    {
        std::vector<std::string> Result;
        std::istringstream Lines(Output);
        for (std::string Line; std::getline(Lines, Line);)
        {
            if (!Line.starts_with("{\"event\":\"process-started\""))
                continue;
            Line.pop_back();
            if (const auto Place = Line.find(",\"dry_run\":true"); Place != std::string::npos)
                Line.erase(Place, std::string(",\"dry_run\":true").size());
            else if (const auto Name = Line.find("/qxresp.rsp"); Name != std::string::npos)
                Line += ",\"response_file\":\"" + ResponseFile(Line.substr(0, Name)) + '"';
            Result.push_back(Line);
        }
        return Result;
    }

private:
    const std::string NUnit = "/usr/lib/nunit/nunit-console.exe";

    /// The response file in the folder that ends a line, as it stands in JSON.
    std::string ResponseFile(const std::string& Line) const
    {
        std::string Text = ReadFile(Line.substr(Line.rfind('"') + 1) + "/qxresp.rsp");
        for (const auto& [From, To] : {std::pair("\"", "\\\""), std::pair("\r\n", "\\r\\n")})
            for (std::size_t Place = 0; (Place = Text.find(From, Place)) != std::string::npos;)
            {
                Text.replace(Place, std::string_view(From).size(), To);
                Place += std::string_view(To).size();
            }
        return Text;
    }
};
} // namespace

TEST_F(TExampleTest, ADryRunShowsTheStartsOfTheRealOneAndTouchesNothing)
{
    if (!HasTools())
        GTEST_SKIP() << "Mono's tools or NUnit are not installed";
    const auto Before = Tree();
    const TProgramResult Planned = Run({"run", "--dry-run", "--format", "json"});
    EXPECT_EQ(Planned.ExitCode, 0) << Planned.Out;
    EXPECT_EQ(Tree(), Before);
    EXPECT_THAT(Planned.Out, HasSubstr("Would copy "));
    EXPECT_THAT(Planned.Out, Not(HasSubstr("Compiled OK")));
    EXPECT_THAT(Run({"run", "--dry-run"}).Out, HasSubstr("\n10 planned, 0 failed, 0 skipped in "));

    const TProgramResult Real = Run({"run", "--format", "json"});
    ASSERT_EQ(Real.ExitCode, 0) << Real.Out;
    EXPECT_EQ(Starts(Planned.Out), Starts(Real.Out));
    EXPECT_EQ(Starts(Real.Out).size(), 10U);
}

TEST_F(TExampleTest, BuildsTestsAndRunsWithTheRealTools)
{
    if (!HasTools())
        GTEST_SKIP() << "Mono's tools or NUnit are not installed";
    const TProgramResult Result = Run({"run", "--set", "Version=2.7.1.8"});
    ASSERT_EQ(Result.ExitCode, 0) << Result.Out << Result.Err;
    EXPECT_THAT(Result.Out, HasSubstr("  Looking for the output of Core.dll\n"));
    EXPECT_THAT(Result.Out, HasSubstr("Tests run: 5, Errors: 0, Failures: 0, Inconclusive: 0, "));
    EXPECT_THAT(Shell("monodis --assembly bin/Release/AcmeConsole.exe"), HasSubstr("Version:       2.7.1.8\n"));
    EXPECT_EQ(Shell("mono bin/Release/AcmeConsole.exe"), "Acme's stock today:\n   3 anvil\n  12 rocket skates\n");
    EXPECT_EQ(Shell("mono bin/Release/AcmeForms.exe /check"), "Acme.Forms....Shared.About.txt\n"
                                                              "Acme.Forms.Logo.bmp\n"
                                                              "Acme.Forms.MainForm.resources\n"
                                                              "Acme.Forms.Messages.resources\n"
                                                              "AcmeForms.exe.licenses\n"
                                                              "Acme & Sons: stock\n"
                                                              "Welcome to the stock\n"
                                                              "anvil\n");
    EXPECT_FALSE(HasFile("bin/Release/lc.exe"));
    EXPECT_EQ(Shell("python3 -m zipfile -l dist/acme.zip | cut -d' ' -f1"),
              "File\nAcme.About.dll\nAcme.Core.dll\nAcmeConsole.exe\nAcmeConsole.exe.config\nAcmeForms.exe\n");
}

TEST_F(TFolderNamesTest, ProjectsOfAnyFolderCompileAndRun)
{
    if (!fs::exists("/usr/lib/mono/4.5/mcs.exe"))
        GTEST_SKIP() << "Mono's tools are not installed";
    WriteFile("Kit.cs", "public class Kit { public const string Name = \"Kit and \"; }");
    Shell("mcs -target:library Kit.cs");
    CheckTable("folders", "names of folders", [&](const TColumns& Row) {
        fs::remove_all(Path("in"));
        WriteProject(Row[0]);
        const TProgramResult Result = Run({"run", "in/" + Row[0]}, {{"Done", "wrong"}});
        EXPECT_EQ(Result.ExitCode, 0) << Result.Out << Result.Err;
        EXPECT_EQ(Result.Out.find("Warning"), std::string::npos) << Result.Out;
        EXPECT_TRUE(HasFile("in/" + Row[0] + "/doc/" + Row[0] + "/App.xml"));
        EXPECT_TRUE(HasFile("in/" + Row[0] + "/bin/" + Row[0] + "/App.exe.config"));
        return TColumns{Shell("mono in/*/bin/*/App.exe")};
    });
}
