// Runs the cases of data/, whose README.md tells what can stand there.
#include "runtime/HostErrors.h"
#include "tests/DataFile.h"
#include "tests/runtime/ProjectDump.h"
#include "tests/runtime/PropertyTexts.h"
#include "tests/runtime/SampleActions.h"

#include <gtest/gtest.h>

#include <sstream>

namespace
{
std::string TextOf(const TDataLine& Line)
{
    return Line.Text.empty() ? Unescape(Line.Rest) : Line.Text;
}

std::vector<std::string> Split(const std::string& Text)
{
    TStringList List;
    List.SetDelimitedText(Text, ';', true);
    return List.Items();
}

class ProjectData : public testing::TestWithParam<std::string>
{
protected:
    ProjectData() { RegisterSampleActions(); }

    static std::string ErrorOf(const std::string& Kind, const std::string& Text)
    {
        try
        {
            if (Kind == "options")
                static_cast<void>(TOptionsFile::Parse("p.toml", Text));
            else
                static_cast<void>(TProject::Parse("p.toml", Text));
            return "";
        }
        catch (const EHostFileError& Error)
        {
            return std::string(Error.what()) + '\n';
        }
    }

    static bool EditAction(TProjectAction& Action, const TDataLine& Line, const std::string& Setting)
    {
        const auto [Name, Value] = SplitSetting(Setting.starts_with('=') ? ' ' + Setting : Setting);
        if (Line.Word == "set")
            return SetProperty(*Action.Object, Name, Value);
        if (Line.Word == "clear")
            return Action.Object->FindProperty(Name)->Write(std::vector<std::string>()), true;
        if (Line.Word == "script")
            return Action.Object->GetScriptByName(Name)->SetText(Unescape(Value)), true;
        if (Line.Word == "enabled")
            return Action.Enabled = Value == "true", true;
        if (Line.Word == "on_failure")
            return Action.OnFailure = Value == "stop" ? TOnFailure::Stop : TOnFailure::Continue, true;
        if (Line.Word == "timeout")
            return Action.TimeoutSeconds = std::stoi(Value), true;
        for (const auto& [Word, Text] : {std::pair("group", &Action.Group), std::pair("when", &Action.When),
                                         std::pair("arguments", &Action.Arguments)})
            if (Line.Word == Word)
                return *Text = Value, true;
        return false;
    }

    static bool Edit(TProject& Project, const TDataLine& Line)
    {
        std::istringstream Words(Line.Rest);
        std::size_t Number = 0;
        std::string Setting;
        auto& Actions = Project.Actions;
        if (Line.Word == "name")
            return Project.Name = Line.Rest, true;
        if (Line.Word == "secrets")
            return Project.Secrets = Split(Line.Rest), true;
        if (Line.Word == "follow_ide")
            return Project.FollowsIDE = Line.Rest == "true", true;
        if (Line.Word == "variables")
        {
            Project.Variables.clear();
            for (const std::string& Item : Split(Line.Rest))
                Project.Variables.emplace_back(Item.substr(0, Item.find('=')), Item.substr(Item.find('=') + 1));
            return true;
        }
        if (!(Words >> Number) || Number == 0 || !std::getline(Words >> std::ws, Setting))
            Setting.clear();
        const auto Place = Actions.begin() + static_cast<std::ptrdiff_t>(Number) - 1;
        if (Line.Word == "remove")
            return Actions.erase(Place), true;
        if (Line.Word == "swap")
            return std::swap(*Place, Actions.at(std::stoul(Setting) - 1)), true;
        if (Line.Word == "add")
            return Actions.insert(Place, NewAction("TPlainAction", Setting)), true;
        return EditAction(Actions.at(Number - 1), Line, Setting);
    }

    /// Stored settings: "KEY.NAME = text", or "integer KEY.NAME = number".
    static void CheckOptions(const TDataCase& Case, const std::string& Text)
    {
        TOptionsFile File = TOptionsFile::Parse("p.toml", Text);
        for (std::size_t Index = 1; Index < Case.Lines.size(); ++Index)
        {
            const TDataLine& Line = Case.Lines[Index];
            const auto [Setting, Value] = SplitSetting(Line.Rest);
            const std::string Key = Setting.substr(0, Setting.rfind('.'));
            const std::string Name = Setting.substr(Setting.rfind('.') + 1);
            if (Line.Word == "after")
                EXPECT_EQ(File.Text(), TextOf(Line));
            else if (Line.Word == "integer")
            {
                File.WriteInteger(Key, Name, std::stoi(Value));
                EXPECT_EQ(File.ReadInteger(Key, Name), std::stoi(Value));
            }
            else
            {
                File.WriteString(Key, Name, Unescape(Value));
                EXPECT_EQ(File.ReadString(Key, Name), Unescape(Value));
            }
        }
    }

    static void Check(const TDataCase& Case)
    {
        const std::string Text = TextOf(Case.Lines.at(0));
        std::string Errors;
        for (const TDataLine& Line : Case.Lines)
            Errors += Line.Word == "error" ? "p.toml:" + Line.Rest + '\n' : "";
        EXPECT_EQ(ErrorOf(Case.Lines[0].Word, Text), Errors);
        if (!Errors.empty())
            return;
        if (Case.Lines[0].Word == "options")
            return CheckOptions(Case, Text);
        TProject Project = TProject::Parse("/build/Acme/p.toml", Text);
        EXPECT_EQ(Project.ToText(), Text);
        for (std::size_t Index = 1; Index < Case.Lines.size(); ++Index)
            if (const TDataLine& Line = Case.Lines[Index]; Line.Word == "after")
                EXPECT_EQ(Project.ToText(), TextOf(Line));
            else if (!Edit(Project, Line))
                Case.Fail(Line, "no such edit");
        EXPECT_EQ(Dump(TProject::Parse("/build/Acme/p.toml", Project.ToText())), Dump(Project));
    }

    TQXRuntime FRuntime;
};
} // namespace

TEST_P(ProjectData, GivesWhatItSays)
{
    for (const TDataCase& Case : ReadCases(GetParam()))
    {
        const testing::ScopedTrace Trace(Case.File.c_str(), Case.Line, Case.Name);
        Check(Case);
    }
}

INSTANTIATE_TEST_SUITE_P(Runtime, ProjectData, testing::ValuesIn(FindDataFiles("tests/runtime/data")),
                         [](const auto& Info) { return DataFileName(Info.param); });
