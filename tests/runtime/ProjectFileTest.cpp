#include "platform/Files.h"
#include "runtime/HostErrors.h"
#include "runtime/Project.h"
#include "runtime/Runtime.h"
#include "runtime/projects/ProjectSchema.h"
#include "tests/TempFolder.h"
#include "tests/runtime/PropertyTexts.h"
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

TSampleAction& Sample(TProject& Project, std::size_t Index)
{
    return dynamic_cast<TSampleAction&>(*Project.Actions.at(Index).Object);
}

/// Everything that a project's file stores, as one text.
std::string Dump(const TProject& Project)
{
    std::string Text = Project.Name + "\n";
    for (const std::string& Secret : Project.Secrets)
        Text.append("secret ").append(Secret).append("\n");
    auto Variables = Project.Variables;
    std::sort(Variables.begin(), Variables.end());
    for (const auto& [Name, Value] : Variables)
        Text.append(Name).append("=").append(Value).append("\n");
    for (const TProjectAction& Action : Project.Actions)
    {
        for (const std::string& Part : {Action.Type, Action.Name, std::string(Action.Enabled ? "on" : "off"),
                                        std::to_string(static_cast<int>(Action.OnFailure))})
            Text.append(Part).append("/");
        Text.append(std::to_string(Action.TimeoutSeconds)).append("\n");
        for (const TQXProperty& Property : Action.Object->Properties())
        {
            Text.append("  ").append(Property.Name).append("=").append(ValueText(Property.Read())).append("\n");
        }
        for (const auto& Script : Action.Object->Scripts())
            Text.append("  ").append(Script->Name()).append(":").append(Script->Text()).append("\n");
    }
    return Text;
}

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

TEST_F(ProjectFile, ReportsEveryMistakeAtItsPlace)
{
    const std::string Head = "[[action]]\ntype = \"TSampleAction\"\n";
    const std::pair<std::string, std::string> Cases[] = {
        {"projct = 1", "p.toml:1:1: a project has no \"projct\"; did you mean \"project\"?"},
        {"[project]\nnme = ''\nname = 1\nsecrets = ['1x']",
         "p.toml:2:1: [project] has no key \"nme\"; did you mean \"name\"?\n"
         "p.toml:3:8: \"name\" expects a string, not an integer\n"
         "p.toml:4:12: \"1x\" cannot name a variable: a name is a letter or \"_\", followed by letters, digits, "
         "\"_\" and \".\""},
        {"[[project]]", "p.toml:1:1: \"project\" expects a table, not an array"},
        {"[variables]\nConfig = 'a'\n config = 'b'\nN = 5\na.b = ''\n'a\\n' = ''",
         "p.toml:3:2: variable \"config\" is \"Config\" of line 2 again: names ignore case\n"
         "p.toml:4:5: \"N\" expects a string, not an integer\n"
         "p.toml:5:1: variable \"a\" is a table; a name with a dot stands in quotes: \"a.b\"\n"
         "p.toml:6:1: \"a\\n\" cannot name a variable: a name is a letter or \"_\", followed by letters, digits, "
         "\"_\" and \".\""},
        {"\n[action]\ntype = 'TSampleAction'",
         "p.toml:2:1: \"action\" is a single table; write [[action]] above each action"},
        {"action = [1]", "p.toml:1:11: \"action\" expects [[action]] tables, not an integer"},
        {"# one\n[[action]]\nForce = true", "p.toml:2:1: the action has no \"type\", which names its class"},
        {"[[action]]\ntype = 'tsampleaction'\nenabeld = 1",
         "p.toml:2:8: there is no action type \"tsampleaction\"; did you mean \"TSampleAction\"?\n"
         "p.toml:3:1: [[action]] has no key \"enabeld\"; did you mean \"enabled\"?"},
        {"[[action]]\ntype = 'Nothing like it'", "p.toml:2:8: there is no action type \"Nothing like it\""},
        {Head + "timeout = -1\non_failure = 'Stop'\nenabled = 'no'\nTimeout = 3",
         "p.toml:3:11: -1 is out of range for \"timeout\" (0 to 2147483647)\n"
         "p.toml:4:14: \"on_failure\" has no value \"Stop\"; did you mean \"stop\"?\n"
         "p.toml:5:11: \"enabled\" expects a Boolean, not a string\n"
         "p.toml:6:1: [[action]] has no key \"Timeout\"; did you mean \"timeout\"?"},
        {Head + "Texte = ''\nflag = true\nLength = 3\nZzz = 1",
         "p.toml:3:1: TSampleAction has no property \"Texte\"; did you mean \"Text\"?\n"
         "p.toml:4:1: TSampleAction has no property \"flag\"; did you mean \"Flag\"?\n"
         "p.toml:5:1: TSampleAction has no property \"Length\"\n"
         "p.toml:6:1: TSampleAction has no property \"Zzz\""},
        {Head + "Text = true\nFlag = 'yes'\nCount = 1.5\nColour = 1\nLines = 'a'\nColours = {}\n",
         "p.toml:3:8: \"Text\" expects a string, not a Boolean\n"
         "p.toml:4:8: \"Flag\" expects a Boolean, not a string\n"
         "p.toml:5:9: \"Count\" expects an integer, not a floating-point number\n"
         "p.toml:6:10: \"Colour\" expects the name of a value as a string, not an integer\n"
         "p.toml:7:9: \"Lines\" expects an array of strings, not a string\n"
         "p.toml:8:11: \"Colours\" expects an array of names, not a table"},
        {Head + "Count = 2147483648\nColour = 'Gren'\nLines = ['a', 1]\nColours = ['Red',\n  'red', 'x']",
         "p.toml:3:9: 2147483648 is out of range for \"Count\" (-2147483648 to 2147483647)\n"
         "p.toml:4:10: \"Colour\" has no value \"Gren\"; did you mean \"Green\"?\n"
         "p.toml:5:15: \"Lines\" expects an array of strings, not an integer\n"
         "p.toml:7:3: \"Colours\" has no value \"red\"; did you mean \"Red\"?\n"
         "p.toml:7:10: \"Colours\" has no value \"x\"; its values are \"Red\", \"Green\", \"Blue\""},
        {Head + "[action.scripts]\nOnStrat = ''\nOnEnd = 1\n[[action]]\ntype = 'TPlainAction'\nscripts.OnX = ''",
         "p.toml:4:1: TSampleAction has no script \"OnStrat\"; did you mean \"OnStart\"?\n"
         "p.toml:5:9: \"OnEnd\" expects a string, not an integer\n"
         "p.toml:8:9: TPlainAction has no script \"OnX\""},
        // What the text itself gets wrong is found first, and alone. Columns count characters.
        {"[project]\nname = 'äöü' x", "p.toml:2:14: error while parsing key-value pair: expected a comment or "
                                      "whitespace, saw 'x'"},
        {"[project]\nname = 'äö\xFF'", "p.toml:2:11: the file is not valid UTF-8"},
        {"\xFF\xFEx", "p.toml:1:1: the file is not valid UTF-8"},
        {"\xEF\xBB\xBFname = 1", "p.toml:1:1: a project has no \"name\""},
    };
    for (const auto& [Text, Expected] : Cases)
        EXPECT_EQ(ErrorOf(Text), Expected) << Text;
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

    for (const auto& [Path, Message] :
         {std::pair{(Folder / "none.toml").string(), "there is no such project file or folder"},
          std::pair{(Folder / "Acme" / "empty").string(), "the folder holds no project file"}})
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

struct TEditCase
{
    const char* Name;
    std::string Before;
    std::function<void(TProject&)> Edit;
    std::string After;
};

TProjectAction NewAction(const char* Type, const char* Name)
{
    const TQXActionRegistration* Registration = QXActionServices().FindAction(Type);
    TProjectAction Action;
    Action.Type = Type;
    Action.Name = Name;
    Action.Object = Registration->ActionClass.Create();
    return Action;
}

class ProjectEdit : public ProjectFile
{
protected:
    static void Check(std::span<const TEditCase> Cases)
    {
        for (const TEditCase& Case : Cases)
        {
            TProject Project = TProject::Parse("/build/Acme/p.toml", Case.Before);
            EXPECT_EQ(Project.ToText(), Case.Before) << Case.Name;
            Case.Edit(Project);
            const std::string Text = Project.ToText();
            EXPECT_EQ(Text, Case.After) << Case.Name;
            EXPECT_EQ(Dump(TProject::Parse("/build/Acme/p.toml", Text)), Dump(Project)) << Case.Name;
        }
    }
};

TEST_F(ProjectEdit, ChangesPropertiesWhereTheyStand)
{
    const std::string Sample = R"(# Build
[[action]]   # first
type = "TSampleAction"
  # why
  Text = "old"   # kept
Lines = [ "a",   # one
  "b" ] # two
Colour = "Green" # the default, and yet written
)";
    const TEditCase Cases[] = {
        {"in place", Sample, [](TProject& Project) { ::Sample(Project, 0).Text = R"(C:\new "x")"; }, R"(# Build
[[action]]   # first
type = "TSampleAction"
  # why
  Text = 'C:\new "x"'   # kept
Lines = [ "a",   # one
  "b" ] # two
Colour = "Green" # the default, and yet written
)"},
        {"inserted in order, removed with its line", Sample,
         [](TProject& Project) {
             TSampleAction& Action = ::Sample(Project, 0);
             Action.Flag = false;
             Action.Count = -1;
             Action.Colours.Include(TSampleColour::Blue);
             Action.Colours.Include(TSampleColour::Red);
             Action.Lines.Clear();
             Project.Actions[0].Enabled = false;
             Project.Actions[0].OnFailure = TOnFailure::Continue;
             Project.Actions[0].TimeoutSeconds = 5;
         },
         R"(# Build
[[action]]   # first
type = "TSampleAction"
enabled = false
on_failure = "continue"
timeout = 5
  # why
  Text = "old"   # kept
  Flag = false
  Count = -1
Colour = "Green" # the default, and yet written
Colours = ["Red", "Blue"]
)"},
        {"a property whose default depends on another", "[[action]]\ntype = 'TSampleAction'\n",
         [](TProject& Project) {
             ::Sample(Project, 0).Override = true;
             ::Sample(Project, 0).Version = TSampleAction::DefaultVersion;
         },
         "[[action]]\ntype = 'TSampleAction'\nOverride = true\nVersion = \"v2.0\"\n"},
        {"a value that its setter drops", "[[action]]\ntype = 'TSampleAction'\nVersion = 'v9'\nText = 'a'\n",
         [](TProject& Project) { ::Sample(Project, 0).Text = ""; },
         "[[action]]\ntype = 'TSampleAction'\nVersion = 'v9'\n"},
        {"scripts and lists keep the file's line ends", "[[action]]\r\ntype = 'TSampleAction'",
         [](TProject& Project) {
             ::Sample(Project, 0).Lines = {"a", "it's", "\"q\""};
             Project.Actions[0].Object->Scripts()[1]->SetText("if (a)\n  b();\n");
         },
         "[[action]]\r\ntype = 'TSampleAction'\r\nLines = [\r\n    \"a\",\r\n    \"it's\",\r\n    '\"q\"',\r\n]\r\n\r\n"
         "[action.scripts]\r\nOnEnd = '''\r\nif (a)\r\n  b();\r\n'''"},
        {"the last script takes its header along",
         "[[action]]\ntype = 'TSampleAction'\n\n[action.scripts]\nOnEnd = 'a'\n\n[[action]]\ntype = 'TPlainAction'\n",
         [](TProject& Project) { Project.Actions[0].Object->Scripts()[1]->SetText({}); },
         "[[action]]\ntype = 'TSampleAction'\n\n[[action]]\ntype = 'TPlainAction'\n"},
        {"dotted and inline scripts",
         "[[action]]\ntype = 'TSampleAction'\nscripts.OnEnd = 'a'\n[[action]]\ntype = 'TSampleAction'\nscripts = { "
         "OnEnd "
         "= 'a' }\n[[action]]\ntype = 'TSampleAction'\n scripts.OnEnd = 'a'\nText = 'b'",
         [](TProject& Project) {
             for (std::size_t Index : {0U, 1U})
                 Project.Actions[Index].Object->Scripts()[0]->SetText("x");
             Project.Actions[2].Object->Scripts()[1]->SetText({});
             Project.Actions[2].Object->Scripts()[0]->SetText("y");
             ::Sample(Project, 2).Text = {};
         },
         "[[action]]\ntype = 'TSampleAction'\nscripts.OnStart = \"x\"\nscripts.OnEnd = 'a'\n[[action]]\ntype = "
         "'TSampleAction'\nscripts = { OnStart = \"x\", OnEnd = 'a' }\n[[action]]\ntype = 'TSampleAction'\n\n"
         "[action.scripts]\nOnStart = \"y\"\n"},
    };
    Check(Cases);
}

TEST_F(ProjectEdit, ChangesProjectAndVariablesInWhateverFormTheyHave)
{
    const auto SetAll = [](TProject& Project) {
        Project.Name = "New";
        Project.Secrets = {"Key", "Pin"};
        Project.Variables = {{"A", "1"}, {"a.c", "it's"}, {"B", "2"}};
    };
    const TEditCase Cases[] = {
        {"nothing there", "", SetAll,
         "[project]\nname = \"New\"\nsecrets = [\"Key\", \"Pin\"]\n\n[variables]\nA = \"1\"\n\"a.c\" = \"it's\"\nB = "
         "\"2\"\n"},
        {"before the actions", "\xEF\xBB\xBF# Banner\n\n# Compiles\n[[action]]\ntype = 'TPlainAction'", SetAll,
         "\xEF\xBB\xBF# Banner\n\n[project]\nname = \"New\"\nsecrets = [\"Key\", \"Pin\"]\n\n[variables]\nA = \"1\"\n"
         "\"a.c\" = \"it's\"\nB = \"2\"\n\n# Compiles\n[[action]]\ntype = 'TPlainAction'"},
        {"under headers", "[variables]\nB = '1'\n# end\n[project]\n", SetAll,
         "[variables]\nA = \"1\"\n\"a.c\" = \"it's\"\nB = \"2\"\n# end\n[project]\nname = \"New\"\nsecrets = [\"Key\", "
         "\"Pin\"]\n"},
        {"dotted", "project.name = 'Old'\nvariables.A='1'\nvariables.Gone = ''\nvariables.B='1' #\n", SetAll,
         "project.name = \"New\"\nproject.secrets = [\"Key\", \"Pin\"]\nvariables.A='1'\nvariables.\"a.c\" = \"it's\"\n"
         "variables.B=\"2\" #\n"},
        {"inline", "project = { secrets = [ 'Key', 'Pin' ] }\nvariables={A='1',Gone=''}", SetAll,
         "project = { name = \"New\", secrets = [ 'Key', 'Pin' ] }\nvariables={ A='1', \"a.c\" = \"it's\", B = \"2\" "
         "}"},
        {"the default name goes", "[project]\nname = 'Old'\n", [](TProject& Project) { Project.Name = "Acme"; },
         "[project]\n"},
    };
    Check(Cases);
}

TEST_F(ProjectEdit, MovesAddsAndRemovesActions)
{
    const std::string Three = R"([variables]
A = ''

# one
[[action]]
type = 'TPlainAction'
name = 'one'

[[action]]
type = 'TSampleAction'
name = 'two'
[action.scripts]
OnEnd = '''
# not a comment
'''
# three
[[action]]
type = 'TPlainAction'
name = 'three')";
    const std::string Variables = "[variables]\nA = ''\n\n";
    const std::string One = "# one\n[[action]]\ntype = 'TPlainAction'\nname = 'one'\n\n";
    const std::string Two = "[[action]]\ntype = 'TSampleAction'\nname = 'two'\n[action.scripts]\nOnEnd = '''\n# not a "
                            "comment\n'''\n";
    const std::string Last = "# three\n[[action]]\ntype = 'TPlainAction'\nname = 'three'";
    const std::string Fresh = "[[action]]\ntype = \"TPlainAction\"\nname = \"new\"\n";
    const auto Erase = [](int Index) {
        return [Index](TProject& Project) { Project.Actions.erase(Project.Actions.begin() + Index); };
    };
    const TEditCase Cases[] = {
        {"first removed", Three, Erase(0), Variables + Two + Last},
        {"middle removed", Three, Erase(1), Variables + One + Last},
        {"last removed", Three, Erase(2), Variables + One + Two},
        {"all removed", Three, [](TProject& Project) { Project.Actions.clear(); }, "[variables]\nA = ''\n"},
        {"one appended", Three, [](TProject& Project) { Project.Actions.push_back(NewAction("TPlainAction", "new")); },
         Three + "\n\n" + Fresh},
        {"one in between", Three,
         [](TProject& Project) {
             Project.Actions.insert(Project.Actions.begin() + 1, NewAction("TPlainAction", "new"));
         },
         Variables + One + Fresh + "\n" + Two + Last},
        {"turned around", Three,
         [](TProject& Project) { std::reverse(Project.Actions.begin(), Project.Actions.end()); },
         Variables + Last + "\n\n" + Two + "\n" + One.substr(0, One.size() - 1)},
        {"sections of one action apart",
         "[[action]]\ntype = 'TSampleAction'\n[project]\n[action.scripts]\nOnEnd = 'a'\n[[action]]\ntype = "
         "'TPlainAction'\n",
         [](TProject& Project) { std::swap(Project.Actions[0], Project.Actions[1]); },
         "[[action]]\ntype = 'TPlainAction'\n\n[project]\n\n[[action]]\ntype = 'TSampleAction'\n[action.scripts]\n"
         "OnEnd = 'a'\n"},
        {"actions in one statement are written anew", "action = [\n  { type = 'TPlainAction' }, # x\n]\n[project]\n",
         [](TProject& Project) { Project.Actions.push_back(NewAction("TPlainAction", "new")); },
         "[project]\n\n[[action]]\ntype = \"TPlainAction\"\n\n" + Fresh},
    };
    Check(Cases);
}

/// Texts that are hard to write down, and ordinary ones.
const std::string HardTexts[] = {
    "",       "plain",      "C:\\a b\\", "it's",          "\"q\"",      "'\"\\",
    "a\nb",   "\n",         "'''\n",     "a\n'",          "\ta\r\nb\r", std::string("\0\x7F", 2),
    "\"\"\"", "\\\n\"\"\"", "#x = [",    "äöü\u0085日本", "%A%%",       "a\nb\\"};

TEST_F(ProjectEdit, AnySeriesOfEditsReadsBackAsItWas)
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

TEST_F(ProjectFile, SchemaTellsTypesDefaultsAndScripts)
{
    const std::string Schema = ProjectSchemaJson();
    for (const char* Part :
         {"\"items\": {\n        \"oneOf\": [\n          {\n            \"$ref\": \"#/$defs/TSampleAction\"",
          "\"required\": [\n        \"type\"\n      ],", "\"const\": \"TSampleAction\"",
          "\"Count\": {\n          \"type\": \"integer\",\n          \"minimum\": -2147483648,\n          \"maximum\": "
          "2147483647,\n          \"default\": 7\n        }",
          "\"Colour\": {\n          \"enum\": [\n            \"Red\",\n            \"Green\",\n            \"Blue\"\n  "
          "   "
          "     ],\n          \"default\": \"Green\"\n        }",
          "\"Version\": {\n          \"type\": \"string\"\n        }", "\"OnStart\": {"})
        EXPECT_NE(Schema.find(Part), std::string::npos) << Part << "\n" << Schema;
    EXPECT_EQ(Schema.find("\"Length\""), std::string::npos);
}
} // namespace
