#include "platform/Files.h"
#include "runtime/HostErrors.h"
#include "runtime/Project.h"
#include "runtime/Runtime.h"
#include "tests/TempFolder.h"
#include "tests/runtime/ProjectDump.h"
#include "tests/runtime/SampleActions.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <random>

namespace
{
class ProjectFile : public testing::Test
{
protected:
    ProjectFile() { RegisterSampleActions(); }

    static std::string ErrorOf(std::string_view Text)
    {
        try
        {
            static_cast<void>(TProject::Parse("p.toml", Text));
            return "no error";
        }
        catch (const EHostFileError& Error)
        {
            return Error.what();
        }
    }

    TQXRuntime FRuntime;
};

TEST_F(ProjectFile, RestoresEverythingThatItNames)
{
    const TProject Project = TProject::Parse("/build/Acme/p.toml", R"(
[project]
secrets = ["Password"]
[variables]
OutDir = '%ProjectDir%\bin'
"a.b" = "1"
[[action]]
type = "TSampleAction"
Version = "v9"      # restored behind Override, which stands below
Override = true
Text = "x"
Flag = false
Count = -2147483648
Colour = "Blue"
Colours = ["Blue", "Red"]
Lines = ["one", 'two\2']
[action.scripts]
OnEnd = '''
a();
'''
[[action]]
type = "TPlainAction"
name = "Second"
enabled = false
on_failure = "continue"
timeout = 600
)");
    EXPECT_EQ(Project.File, "/build/Acme/p.toml");
    EXPECT_EQ(Project.Folder, "/build/Acme");
    EXPECT_EQ(Project.Actions.at(1).Index, 2);
    EXPECT_EQ(Dump(Project), R"(Acme
secret Password
OutDir=%ProjectDir%\bin
a.b=1
TSampleAction/Sample/on/0/0
  Text=x
  Flag=false
  Count=-2147483648
  Colour=Blue
  Colours=Red|Blue|
  Lines=one|two\2|
  Length=1
  Override=true
  Version=v9
  OnStart:
  OnEnd:a();

TPlainAction/Second/off/1/600
  Text=
)");
}

TEST_F(ProjectFile, SurvivesHostileTexts)
{
    const auto Repeat = [](std::string_view Text, int Times) {
        std::string Result;
        while (Times-- > 0)
            Result += Text;
        return Result;
    };
    const std::string Cases[] = {
        "x = " + Repeat("[", 100000),
        "x = " + Repeat("{a=", 100000),
        Repeat("a.", 100000) + "a = 1",
        "[" + Repeat("a . ", 100000) + "a]",
        "[" + Repeat("'a'.", 100000) + "a]",
        "x = {" + Repeat("\"a\".", 100000) + "a = 1}",
        Repeat("a = '''", 5),
        std::string("a = \"\0\"", 7),
        "type = " + Repeat("x", 1000000),
        Repeat("x", 1000000) + " = 1",
    };
    for (const std::string& Text : Cases)
        EXPECT_NE(ErrorOf(Text), "no error") << Text.substr(0, 20);
    EXPECT_EQ(ErrorOf("[variables]\nDots = '...' # " + Repeat(".", 1000) + "\nMore = '''\n" + Repeat("a.", 1000) +
                      "''''\nLast = \"\\\"" + Repeat(".", 1000) + "\""),
              "no error");
}

TEST_F(ProjectFile, IsFoundByFileOrFolderOrSaysWhatItLookedFor)
{
    const TTempFolder Temp;
    const std::filesystem::path Folder = Temp.Path();
    std::filesystem::create_directories(Folder / "Acme" / "empty");
    Temp.Write("Acme/quexley.toml", "[[action]]\ntype = 'TPlainAction'\n");

    TProject Project = TProject::Load((Folder / "Acme").string() + "/");
    EXPECT_EQ(Project.File, (Folder / "Acme" / "quexley.toml").string());
    EXPECT_EQ(Project.Folder, (Folder / "Acme").string());
    EXPECT_EQ(Project.Name, "Acme");

    Project.Actions[0].Name = "Named";
    Project.Save();
    EXPECT_EQ(Files::Read(Project.File), "[[action]]\ntype = 'TPlainAction'\nname = \"Named\"\n");
    EXPECT_EQ(TProject::Load(Project.File).Actions[0].Name, "Named");

    const std::string Before = Files::CurrentFolder();
    Files::SetCurrentFolder((Folder / "Acme" / "empty").string());
    EXPECT_EQ(TProject::Load("").File, Project.File);
    Files::SetCurrentFolder(Before);

    for (const auto& [Path, Message] :
         {std::pair{(Folder / "none.toml").string(), "there is no such project file or folder"},
          std::pair{(Folder / "Acme" / "empty").string(),
                    "the folder holds no project file; \"quexley init\" makes one"}})
        try
        {
            static_cast<void>(TProject::Load(Path));
            ADD_FAILURE() << Path;
        }
        catch (const EHostFileError& Error)
        {
            EXPECT_TRUE(std::string(Error.what()).starts_with(Path) && std::string(Error.what()).ends_with(Message))
                << Error.what();
        }
}

TEST_F(ProjectFile, SavesEachActionWhereItStands)
{
    const TTempFolder Temp;
    const std::string Common = "[[action]]\ntype = 'TPlainAction'\n\n[[action]]\ntype = 'TSampleAction'\n";
    const std::string Main = "include = ['a.toml', 'b.toml'] # both\n[[action]]\ntype = 'TPlainAction'\n";
    Temp.Write("common.toml", Common);
    Temp.Write("a.toml", "include = ['common.toml']");
    Temp.Write("b.toml", "include = ['common.toml']\n[[action]]\ntype = 'TPlainAction'\nname = 'b'\n");
    Temp.Write("quexley.toml", Main);
    TProject Project = TProject::Load(Temp.Path());
    ASSERT_EQ(Project.Actions.size(), 4U);
    Project.Actions[1].Name = "changed";
    Project.Actions.erase(Project.Actions.begin());
    Project.Actions.push_back(NewAction("TPlainAction", "new"));
    for (int Round = 0; Round < 2; ++Round)
    {
        Project.Save();
        EXPECT_EQ(Files::Read(Temp / "common.toml"), "[[action]]\ntype = 'TSampleAction'\nname = \"changed\"\n");
        EXPECT_EQ(Files::Read(Temp / "a.toml"), "include = ['common.toml']");
        EXPECT_TRUE(Files::Read(Temp / "quexley.toml").starts_with(Main));
        const TProject Again = TProject::Load(Temp.Path());
        EXPECT_EQ(Dump(Again), Dump(Project));
        EXPECT_EQ(Again.Actions.back().Name, "new");
    }
}

TEST_F(ProjectFile, IncludesComeAndGo)
{
    const TTempFolder Temp;
    Temp.Write("common.toml", "[variables]\nB = '2'\n");
    const std::string Without = "# Build\n\n[variables]\nA = '1'\n";
    const std::string With = "# Build\n\ninclude = [\"common.toml\"]\n\n[variables]\nA = '1'\n";
    TProject Project = TProject::Parse(Temp / "quexley.toml", Without);
    Project.Includes = {"common.toml"};
    EXPECT_EQ(Project.ToText(), With);
    Project = TProject::Parse(Temp / "quexley.toml", With);
    EXPECT_EQ(Project.Includes, std::vector<std::string>{"common.toml"});
    EXPECT_EQ(Project.AllVariables().size(), 2U);
    Project.Includes.clear();
    EXPECT_EQ(Project.ToText().find("include"), std::string::npos);
}

/// Texts that are hard to write down, and ordinary ones.
const std::string HardTexts[] = {
    "",       "plain",      "C:\\a b\\", "it's",          "\"q\"",      "'\"\\",
    "a\nb",   "\n",         "'''\n",     "a\n'",          "\ta\r\nb\r", std::string("\0\x7F", 2),
    "\"\"\"", "\\\n\"\"\"", "#x = [",    "äöü\u0085日本", "%A%%",       "a\nb\\"};

TEST_F(ProjectFile, AnySeriesOfEditsReadsBackAsItWas)
{
    const std::string Before[] = {
        "",
        "\xEF\xBB\xBF# c\r\n\r\n[variables]\r\nA = ''\r\n# x\r\n[[action]]\r\ntype = 'TSampleAction' # y\r\nText = 'x'",
        "variables.A = '1'\naction = [ { type = 'TSampleAction', Text = 'a' }, { type = 'TPlainAction' } ]\n",
        "[[action]]\ntype='TSampleAction'\nscripts.OnStart='''\n#\n'''\nLines=['a',\n'b']\n[project]\n\n# c\n[[action]]"
        "\ntype='TSampleAction'\n[action.scripts]\nOnEnd=''\n[variables]\nA=''"};
    std::mt19937 Random(4711);
    const auto Pick = [&](std::size_t Count) { return static_cast<std::size_t>(Random() % Count); };
    const auto PickText = [&] { return HardTexts[Pick(std::size(HardTexts))]; };
    const auto EditAction = [&](TProjectAction& Action) {
        switch (Pick(4))
        {
        case 0:
            Action.Name = PickText();
            break;
        case 1:
            Action.Enabled = !Action.Enabled;
            break;
        case 2:
            Action.Object->FindProperty("Text")->Write(PickText());
            break;
        default:
            if (auto* Sample = dynamic_cast<TSampleAction*>(Action.Object.get()))
            {
                Sample->Lines = Pick(2) ? TStringList{PickText(), PickText()} : TStringList{};
                Sample->Count = Pick(2) ? 7 : static_cast<int>(Random());
                Sample->Colour = static_cast<TSampleColour>(Pick(3));
                Sample->Override = Pick(2);
                Sample->Version = Sample->Override ? PickText() : TSampleAction::DefaultVersion;
                Sample->Scripts()[Pick(2)]->SetText(PickText());
            }
        }
    };
    for (int Round = 0; Round < 2000; ++Round)
    {
        TProject Project = TProject::Parse("/build/Acme/p.toml", Before[Pick(std::size(Before))]);
        for (std::size_t Step = Pick(6); Step > 0; --Step)
        {
            auto& Actions = Project.Actions;
            const std::size_t Kind = Pick(7);
            if (Kind == 0)
                Actions.insert(Actions.begin() + static_cast<int>(Pick(Actions.size() + 1)),
                               NewAction(Pick(2) ? "TSampleAction" : "TPlainAction", "n"));
            else if (Kind == 1)
                Project.Variables = {{"A", PickText()}, {"B." + std::to_string(Pick(3)), PickText()}};
            else if (Kind == 2)
                Project.Secrets = Pick(2) ? std::vector<std::string>{"A", "B"} : std::vector<std::string>{};
            else if (Kind == 3 && !Actions.empty())
                Actions.erase(Actions.begin() + static_cast<int>(Pick(Actions.size())));
            else if (Kind == 4)
                std::shuffle(Actions.begin(), Actions.end(), Random);
            else if (!Actions.empty())
                EditAction(Actions[Pick(Actions.size())]);
        }
        const std::string Text = Project.ToText();
        TProject Again = TProject::Parse("/build/Acme/p.toml", Text);
        ASSERT_EQ(Dump(Again), Dump(Project)) << Text;
        ASSERT_EQ(Again.ToText(), Text);
    }
}
} // namespace
