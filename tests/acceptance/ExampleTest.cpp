// The example solution, and projects in folders of many names, compiled by the real tools where they are. Other
// languages and dry runs are in data/example.txt.
#include "tests/DataFile.h"
#include "tests/acceptance/ProgramTest.h"

#include "gmock/gmock.h"

#include <filesystem>
#include <regex>
#include <string>

namespace fs = std::filesystem;
using testing::HasSubstr;

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
        fs::copy(QUEXLEY_SOURCE_DIR "/examples/acme", Folder(), fs::copy_options::recursive);
        fs::remove_all(Path("bin"));
    }
};
} // namespace

TEST_F(TExampleTest, CompilesAndRunsWithTheRealTools)
{
    if (!fs::exists("/usr/lib/mono/4.5/mcs.exe") || !fs::exists("/usr/lib/mono/4.5/lc.exe"))
        GTEST_SKIP() << "Mono's tools are not installed";
    const TProgramResult Result = Run({"run", "--set", "Version=2.7.1.8"});
    ASSERT_EQ(Result.ExitCode, 0) << Result.Out << Result.Err;
    EXPECT_THAT(Result.Out, HasSubstr("  Looking for the output of Core.dll\n"));
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
