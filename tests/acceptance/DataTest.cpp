// Runs the cases of every file in data/, whose README.md tells what can stand there.
#include "tests/DataFile.h"
#include "tests/acceptance/ProgramTest.h"

#include <algorithm>
#include <filesystem>
#include <iomanip>
#include <map>
#include <regex>
#include <sstream>

namespace fs = std::filesystem;

namespace
{
class TDataTest : public testing::TestWithParam<std::string>
{
};

/// One case in a folder of its own.
class TCaseRun : public TProgramTest
{
public:
    explicit TCaseRun(const TDataCase& Case) : FCase(Case) { UseStandInTools(); }
    void TestBody() override
    {
        for (const TDataLine& Line : FCase.Lines)
        {
            const testing::ScopedTrace Trace(FCase.File.c_str(), Line.Line, Line.Word);
            if (Line.Word == "mono" && !HasMono(Words(Line.Rest)))
                return;
            if (!Prepare(Line) && !Do(Line) && !Check(Line))
                FCase.Fail(Line, "\"" + Line.Word + "\" is no word of data files");
        }
        EndRun();
    }

private:
    bool Prepare(const TDataLine& Line)
    {
        if (Line.Word == "file")
            WriteFile(Line.Rest, Fill(Line.Text));
        else if (Line.Word == "project")
            WriteVisualStudioProject(Words(Line.Rest), Fill(Line.Text));
        else if (Line.Word == "bytes")
            WriteFile(SplitSetting(Line.Rest).first, Unescape(SplitSetting(Line.Rest).second));
        else if (Line.Word == "options")
            UseStandInTools('\n' + Fill(Line.Text));
        else if (Line.Word == "tool")
            WriteStandIn(Line.Rest, Line.Text);
        else if (Line.Word == "copy")
            CopySources(Line.Rest);
        else if (Line.Word == "example")
            WriteFile("quexley.toml", ExampleOf(Line.Rest));
        else if (Line.Word == "actions")
            WriteProject(Words(Line.Rest), Line.Text);
        else if (Line.Word == "mono")
            WriteFile(OptionsFile(), "");
        else if (Line.Word == "env")
            FEnvironment.push_back(SplitSetting(Line.Rest));
        else
            return false;
        return true;
    }

    /// The block of TOML in a document behind a heading.
    static std::string ExampleOf(const std::string& Place)
    {
        const std::string Page = ReadDocument(Place.substr(0, Place.find(' ')));
        const std::size_t Heading = Page.find("\n## " + Place.substr(Place.find(' ') + 1) + '\n');
        const std::size_t Start = Page.find("```toml\n", Heading) + 8;
        EXPECT_TRUE(Heading != Page.npos && Start > Heading) << Place;
        return Page.substr(Start, Page.find("```", Start) - Start);
    }

    static bool HasMono(const std::vector<std::string>& Tools)
    {
        return std::all_of(Tools.begin(), Tools.end(),
                           [](const std::string& Tool) { return fs::exists("/usr/lib/mono/4.5/" + Tool); });
    }

    /// One installation per name; "off:" before it is a disabled one, "go:" one that may fail.
    void WriteProject(const std::vector<std::string>& Names, const std::string& Head) const
    {
        std::string Text = "[project]\nname = \"Acme\"\n" + Head;
        for (std::string Name : Names)
        {
            Text += "\n[[action]]\ntype = \"TGACInstallAction\"\n";
            Text += Name.starts_with("off:")  ? "enabled = false\n"
                    : Name.starts_with("go:") ? "on_failure = \"continue\"\n"
                                              : "";
            Name.erase(0, Name.find(':') + 1);
            Text.append("name = \"").append(Name).append("\"\nAssemblyPath = \"").append(Name).append(".dll\"\n");
        }
        WriteFile("quexley.toml", Text);
    }

    /// A project of Visual Studio .NET 2003 with these References and a source beside it, unless "sources" says which
    /// there are. What else follows its name sets the rest.
    void WriteVisualStudioProject(const std::vector<std::string>& Line, const std::string& References) const
    {
        const fs::path File = Line.front();
        const std::string Bare = File.stem().string();
        std::map<std::string, std::string> Values = {{"guid", ""},
                                                     {"assembly", Bare},
                                                     {"type", "Library"},
                                                     {"configs", R"(Debug=bin\Debug\;Release=bin\Release\)"},
                                                     {"sources", Bare + ".cs"},
                                                     {"settings", ""}};
        for (const std::string& Setting : Line)
            if (const auto Equals = Setting.find('='); &Setting != &Line.front() && Equals != Setting.npos)
                Values.at(Setting.substr(0, Equals)) = Setting.substr(Equals + 1);
        if (Values["sources"] == Bare + ".cs")
            WriteFile((File.parent_path() / Values["sources"]).string(), "class C {}\n");
        const std::string Language = File.extension() == ".vbproj"    ? "VisualBasic"
                                     : File.extension() == ".vjsproj" ? "VISUALJSHARP"
                                                                      : "CSHARP";
        std::string Text = "<VisualStudioProject><" + Language + " SchemaVersion='2.0' ProjectGuid='{" +
                           Values["guid"] + "}'><Build><Settings AssemblyName=\"" + Values["assembly"] +
                           "\" OutputType='" + Values["type"] + "' " + Values["settings"] + ">";
        for (const std::string& Config : Parts(Values["configs"]))
            Text += "<Config Name='" + SplitAt(Config).first + "' OutputPath='" + SplitAt(Config).second + "'/>";
        Text += "</Settings><References>" + References + "</References></Build><Files><Include>";
        for (const std::string& Source : Parts(Values["sources"]))
            Text += "<File RelPath=\"" + Source + "\" BuildAction='Compile'/>";
        WriteFile(File.string(), Text + "</Include></Files></" + Language + "></VisualStudioProject>\n");
    }

    static std::vector<std::string> Parts(const std::string& Text)
    {
        std::vector<std::string> Result;
        std::istringstream Stream(Text);
        for (std::string Part; std::getline(Stream, Part, ';');)
            Result.push_back(Part);
        return Result;
    }

    static std::pair<std::string, std::string> SplitAt(const std::string& Setting)
    {
        return {Setting.substr(0, Setting.find('=')), Setting.substr(Setting.find('=') + 1)};
    }

    bool Do(const TDataLine& Line)
    {
        if (Line.Word == "run")
        {
            EndRun();
            fs::remove(Path("received"));
            FResult = Run(Words(Fill(Line.Rest)), FEnvironment);
            FEnvironment.clear();
            FRun = &Line;
        }
        else if (Line.Word == "wrong")
            CheckWrongUsage(Line);
        else if (Line.Word == "exit")
            CheckExit(std::stoi(Line.Rest));
        else if (Line.Word == "shell")
            Shell(Line.Rest);
        else if (Line.Word == "look")
            FFile = Line.Rest;
        else if (Line.Word == "junit")
            Shell("xmllint --noout --schema '" QUEXLEY_SOURCE_DIR "/tests/acceptance/junit.xsd' " + Line.Rest +
                  " 2>&1");
        else if (Line.Word == "absent")
            EXPECT_FALSE(HasFile(Line.Rest)) << Line.Rest;
        else
            return false;
        return true;
    }

    /// A run whose exit code no line tells succeeds.
    void EndRun()
    {
        if (FRun)
        {
            const testing::ScopedTrace Trace(FCase.File.c_str(), FRun->Line, FRun->Rest);
            CheckExit(0);
        }
    }

    void CheckExit(int Code)
    {
        EXPECT_EQ(FResult.ExitCode, Code) << FResult.Out << FResult.Err;
        FRun = nullptr;
    }

    void CheckWrongUsage(const TDataLine& Line)
    {
        const auto Arrow = Line.Rest.find(" => ");
        const TProgramResult Result = Run(Words(Line.Rest.substr(0, Arrow)));
        const std::string Part = Line.Rest.substr(std::min(Arrow + 4, Line.Rest.size()));
        EXPECT_EQ(Result.ExitCode, 2);
        EXPECT_TRUE(Result.Err.starts_with("quexley: ") && Result.Err.find(Part) != Part.npos) << Result.Err;
        EXPECT_EQ(std::count(Result.Err.begin(), Result.Err.end(), '\n'), 1) << Result.Err;
        EXPECT_EQ(Result.Out, "");
    }

    bool Check(const TDataLine& Line)
    {
        const std::size_t Dash = std::min(Line.Word.find('-'), Line.Word.size());
        const std::string What = Line.Word.substr(0, Dash);
        const std::string How = Line.Word.substr(Dash);
        if (What != "out" && What != "err" && What != "file")
            return false;
        const std::string Text = Normal(What == "out" ? FResult.Out : What == "err" ? FResult.Err : ReadFile(FFile));
        const std::string Wanted = Line.Text.empty() ? Unescape(Line.Rest) : Line.Text;
        if (How == "-is")
            EXPECT_EQ(Wanted, Text);
        else if (How == "-begins")
            EXPECT_EQ(Wanted, Text.substr(0, Wanted.size())) << Text;
        else if (How == "-has" || How == "-lacks")
            EXPECT_EQ(Text.find(Wanted) != Text.npos, How == "-has") << '"' << Wanted << "\" " << How << "\n" << Text;
        else
            return false;
        return true;
    }

    static std::vector<std::string> Words(const std::string& Text)
    {
        std::vector<std::string> Result;
        std::istringstream Stream(Text);
        for (std::string Word; Stream >> std::quoted(Word);)
            Result.push_back(Word);
        return Result;
    }

    [[nodiscard]] std::string Fill(const std::string& Text) const { return Replace(Text, "$DIR", Folder()); }
    /// What a run says, with $DIR for the folder and # for times.
    [[nodiscard]] std::string Normal(const std::string& Text) const
    {
        const std::string Result = std::regex_replace(Text, std::regex(R"(\d+\.\d s\b)"), "#");
        return Replace(std::regex_replace(Result, std::regex(R"re(("seconds":|time=")\d+\.\d+)re"), "$1#"), Folder(),
                       "$DIR");
    }

    static std::string Replace(std::string Text, const std::string& From, const std::string& To)
    {
        for (std::size_t At = Text.find(From); At != Text.npos; At = Text.find(From, At + To.size()))
            Text.replace(At, From.size(), To);
        return Text;
    }

    const TDataCase& FCase;
    TProgramResult FResult;
    const TDataLine* FRun = nullptr; ///< whose exit code was not looked at
    std::string FFile = "received";
    TPairs FEnvironment;
};
} // namespace

TEST_P(TDataTest, GivesWhatItSays)
{
    for (const TDataCase& Case : ReadCases(GetParam()))
    {
        const testing::ScopedTrace Trace(Case.File.c_str(), Case.Line, Case.Name);
        TCaseRun(Case).TestBody();
    }
}

INSTANTIATE_TEST_SUITE_P(Program, TDataTest, testing::ValuesIn(FindDataFiles("tests/acceptance/data")),
                         [](const auto& Info) { return DataFileName(Info.param); });
