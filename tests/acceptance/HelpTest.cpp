// Every action has a help page, and what the page shows is so: its example is planned on the example solution.
#include "tests/acceptance/ProgramTest.h"

#include <filesystem>
#include <nlohmann/json.hpp>
#include <regex>
#include <set>
#include <sstream>

namespace fs = std::filesystem;

namespace
{
/// What stands in a page's fences behind a heading.
std::string CodeBehind(const std::string& Page, const std::string& Heading)
{
    std::istringstream Lines(Page.substr(std::min(Page.find("\n## " + Heading + "\n") + 1, Page.size())));
    std::string Result;
    bool InCode = false;
    std::string Line;
    std::getline(Lines, Line);
    while (std::getline(Lines, Line) && (InCode || !Line.starts_with("## ")))
        if (Line.starts_with("```"))
            InCode = !InCode;
        else if (InCode)
            Result += Line + '\n';
    return Result;
}

/// The name of the element that is closed without being open, or left open; empty if there is none.
std::string BrokenElement(const std::string& Html)
{
    const std::regex Tag("<(/?)([a-z0-9]+)[^>]*?(/?)>");
    std::vector<std::string> Open;
    for (std::sregex_iterator Found(Html.begin(), Html.end(), Tag); Found != std::sregex_iterator(); ++Found)
        if ((*Found)[1].length() == 0 && (*Found)[3].length() == 0)
            Open.push_back((*Found)[2]);
        else if ((*Found)[1].length() > 0 && (Open.empty() || Open.back() != (*Found)[2]))
            return (*Found)[2];
        else if ((*Found)[1].length() > 0)
            Open.pop_back();
    return Open.empty() ? "" : Open.back();
}

class THelpTest : public TProgramTest
{
protected:
    /// The example solution, what else the examples name, and a machine with every tool.
    THelpTest()
    {
        CopySources("examples/acme");
        for (const char* Name : {"Acme.build", "Acme.proj", "Acme.dotfuscator.xml", "Acme.postbuild",
                                 "bin/Release/Acme.Core.dll", "src/Acme.Tool/Program.cs"})
            WriteFile(Name, "");
        WriteFile("src/Acme.Tool/Acme.Tool.bdsproj", Tool);
        WriteFile("src/Acme.Scan/Acme.Scan.csproj", Scan);
        WriteFile(Path("../scanner.reg"), Registry);
        const std::string Tools = Path("../tools/");
        WriteFile(OptionsFile(), std::regex_replace(Machine, std::regex("TOOLS/"), Tools));
        WriteFile(Tools + "resgen.exe", "");
    }

    nlohmann::json Told(const std::vector<std::string>& Arguments) const
    {
        const TProgramResult Result = Run(Arguments);
        EXPECT_EQ(Result.ExitCode, 0) << Result.Err;
        return nlohmann::json::parse(Result.Out);
    }

    /// The command lines and response files of a dry run in a folder that readers know. The tools that Shown names are
    /// there.
    std::string Planned(const std::string& Example, const std::string& Shown) const
    {
        const std::regex Named("(?:^|\n)([\\w-]+\\.exe) ");
        for (std::sregex_iterator Found(Shown.begin(), Shown.end(), Named); Found != std::sregex_iterator(); ++Found)
            WriteFile(Path("../tools/") + (*Found)[1].str(), "");
        WriteFile("quexley.toml", Example);
        const TProgramResult Run = TProgramTest::Run({"run", "--dry-run", "--format", "json"});
        EXPECT_EQ(Run.ExitCode, 0) << Run.Out;
        std::istringstream Lines(Run.Out);
        std::string Result;
        for (std::string Line; std::getline(Lines, Line);)
            if (const auto Event = nlohmann::json::parse(Line); Event["event"] == "process-started")
                Result += fs::path(Event["executable"].get<std::string>()).filename().string() + ' ' +
                          Event["arguments"].get<std::string>() + '\n' + Event.value("response_file", "");
        return std::regex_replace(std::regex_replace(Result, std::regex("\r"), ""), std::regex(Folder()),
                                  "/home/me/acme");
    }

    void CheckPage(const std::string& Type, const std::string& Html) const
    {
        EXPECT_NE(Html.find("<title>" + Type + ": "), std::string::npos);
        EXPECT_EQ(BrokenElement(Html), "");
        for (const char* Heading : {"Properties", "Example", "When it fails"})
            EXPECT_NE(Html.find("<h2>" + std::string(Heading) + "</h2>"), std::string::npos) << Heading;
        for (const auto& Property : Told({"show", Type, "--json"}))
            EXPECT_NE(Html.find("<b>" + Property["name"].get<std::string>() + "</b>"), std::string::npos) << Property;
    }

private:
    const std::string Tool = R"(<BorlandProject><CSharp.Personality><Options><OptionsSet Name="Release"><Options>
<Options Name="Warning">4</Options><Options Name="Optimization">True</Options>
<Options Name="TargetName">Acme.Tool</Options><Options Name="TargetType">Console</Options>
<Options Name="OutputDirectory">bin</Options></Options></OptionsSet></Options>
<FileList><File FileName="Program.cs" ContainerId="CSharpCompiler"/>
<File FileName="System.dll" ContainerId="DotNetAssemblyCompiler"/></FileList></CSharp.Personality></BorlandProject>)";
    const std::string Scan = R"(<VisualStudioProject><CSHARP><Build><References>
<Reference Name="SCANNERLib" Guid="{0}" VersionMajor="1" VersionMinor="0" WrapperTool="tlbimp"/>
</References></Build></CSHARP></VisualStudioProject>)";
    const std::string Registry = R"(REGEDIT4

[HKEY_CLASSES_ROOT\Acme.Scanner\Clsid]
@="{1}"
[HKEY_CLASSES_ROOT\CLSID\{1}\TypeLib]
@="{5C9E01A4-0D5B-4B62-9F3A-7E1B2C3D4E5F}"
[HKEY_CLASSES_ROOT\TypeLib\{5C9E01A4-0D5B-4B62-9F3A-7E1B2C3D4E5F}\1.2]
@="Scanner"
)";
    const std::string Machine = R"([host]
registry = 'TOOLS/../scanner.reg'
[dotnet]
detect = false
[dotnet."v4.5"]
framework = 'TOOLS/'
sdk = 'TOOLS/'
[NAnt]
NAntLocation = 'TOOLS/nant.exe'
[NUnit]
NUnitLocation = 'TOOLS/nunit-console.exe'
[NDoc]
NDocLocation = 'TOOLS/NDocConsole.exe'
[FxCop]
FxCopExe = 'TOOLS/FxCopCmd.exe'
[Demeanor]
DemeanorExe = 'TOOLS/Demeanor.exe'
[Dotfuscator]
DotfuscatorExe = 'TOOLS/Dotfuscator.exe'
[XenoCode]
XenoCode2006Location = 'TOOLS/xbuild.exe'
)";
};
} // namespace

TEST_F(THelpTest, EveryPageHoldsItsActionAndShowsWhatItDoes)
{
    std::set<std::string> Missing;
    const nlohmann::json Classes = Told({"list", "--json"});
    for (const auto& Action : Classes["actions"])
        Missing.insert(Action["type"]);
    const std::string Pages = QUEXLEY_BINARY_DIR "/share/quexley/help/Plugins/";
    for (const auto& Entry : fs::directory_iterator(QUEXLEY_SOURCE_DIR "/help/Plugins"))
    {
        SCOPED_TRACE(Entry.path().string());
        const std::string Page = ReadFile(Entry.path().string());
        const std::string Example = CodeBehind(Page, "Example");
        std::smatch Type;
        ASSERT_TRUE(std::regex_search(Example, Type, std::regex("type = \"(.+)\"\n")));
        EXPECT_EQ(Missing.erase(Type[1]), 1U) << Type[1];
        const std::string Shown = CodeBehind(Page, "Command line");
        EXPECT_EQ(Planned(Example, Shown), Shown);
        CheckPage(Type[1], ReadFile(Pages + Entry.path().stem().string() + ".html"));
    }
    EXPECT_TRUE(Missing.empty()) << *Missing.begin() << " has no page";
}
