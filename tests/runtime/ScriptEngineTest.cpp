#include "platform/Processes.h"
#include "runtime/scripting/DuktapeEngine.h"
#include "runtime/services/ScriptingServices.h"
#include "tests/DataFile.h"
#include "tests/runtime/SampleActions.h"
#include "tests/runtime/TestHost.h"

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include <chrono>
#include <csignal>
#include <optional>
#include <thread>

using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;

namespace
{
constexpr std::string_view ShadeNames[] = {"Dark", "Light", "Date"};

class TSampleOptions final : public TQXPersistent
{
public:
    TSampleOptions() { Publish("Location", Location, "Where it lies"); }
    std::string Location = "/opt/tool";
};

class TEntryList final : public TQXPersistent, public IQXScriptTarget
{
public:
    std::function<void()> RememberState() override
    {
        return [this, Before = Entries] { Entries = Before; };
    }
    std::size_t StateSize() const override { return Entries.empty() ? 0 : Entries.size() * Entries.back().size(); }
    std::vector<std::string> Entries;
};

/// A host with the engine, an action whose script "OnStart" runs, and things for scripts to use.
class ScriptEngine : public testing::Test
{
protected:
    ScriptEngine()
    {
        SetTimeLimit(std::chrono::seconds(60));
        Host.Variables.SetProjectVariables({{"Config", "Release"}});
        IQXScriptingServices& Services = QXScriptingServices();
        Services.RegisterType("TShade", ShadeNames);
        Services.RegisterGlobal("SampleOptions", [this] {
            ++Fetches;
            return QXScriptingServices().ObjectToVariant(Options);
        });
        Services.RegisterGlobal("BrokenOptions",
                                []() -> TQXVariant { throw std::runtime_error("options.toml is broken"); });
        Services.RegisterGlobal("EndOfRun", []() -> TQXVariant {
            Termination::Request(SIGTERM);
            return {};
        });
        Services.RegisterMethod(
            QXScriptMethod<TEntryList>("TEntryList", "AddEntry",
                                       {{"EntryName", TQXParamType::String},
                                        {"EntryValue", TQXParamType::String},
                                        {"IsQuoted", TQXParamType::Boolean}},
                                       [](TEntryList& AList, std::span<const TQXVariant> Arguments) -> TQXVariant {
                                           AList.Entries.push_back(std::get<std::string>(Arguments[0]) + "=" +
                                                                   std::get<std::string>(Arguments[1]) +
                                                                   (std::get<bool>(Arguments[2]) ? " quoted" : ""));
                                           return static_cast<int>(AList.Entries.size());
                                       }));
        AddParam("Action", false, TQXParamType::None, &Action);
        AddParam("Entries", false, TQXParamType::None, &List);
        AddParam("Name", false, TQXParamType::String, std::string("Straße 🙂.dll"));
        AddParam("Result", true, TQXParamType::String, std::string("as it was"));
    }
    void TearDown() override { Termination::Reset(); }

    void SetTimeLimit(std::chrono::milliseconds Limit)
    {
        Host.Runtime.SetScriptEngineSource([Limit] { return std::make_unique<TDuktapeEngine>(Limit); });
    }
    void AddParam(std::string Name, bool IsOutput, TQXParamType Type, TQXVariant Value)
    {
        TQXScriptParam& Param = Script().AddParam();
        Param.SetName(std::move(Name));
        Param.SetIsOutput(IsOutput);
        Param.SetParamType(Type);
        Param.SetValue(std::move(Value));
    }
    TQXScript& Script() { return *Action.GetScriptByName("OnStart"); }

    /// What `Result` holds in the end, or "LINE: REASON".
    std::string Run(std::string Text)
    {
        Script().SetText(std::move(Text));
        Script().FindParam("Result")->SetValue(std::string("as it was"));
        const auto Connection = Host.Connect(Action);
        if (Action.ExecuteScript("OnStart"))
            return std::get<std::string>(Script().FindParam("Result")->Value());
        const TRecordedLog::TScriptError& Error = Host.Log.ScriptErrors.back();
        EXPECT_EQ(Error.Script, "OnStart");
        EXPECT_EQ(std::get<std::string>(Script().FindParam("Result")->Value()), "as it was");
        return std::to_string(Error.Line) + ": " + Error.Reason;
    }

    TTestHost Host;
    TSampleAction Action;
    TEntryList List;
    TSampleOptions Options;
    int Fetches = 0;
};
} // namespace

TEST_F(ScriptEngine, GivesOutputsBack)
{
    CheckTable("scripts", "Gives outputs back", [this](const TColumns& Row) { return TColumns{Run(Row[0])}; });
    EXPECT_TRUE(Host.Log.ScriptErrors.empty());
}

TEST_F(ScriptEngine, ConvertsOutputsToTheirTypes)
{
    AddParam("Flag", true, TQXParamType::Boolean, false);
    AddParam("Count", true, TQXParamType::Integer, {});
    AddParam("Any", true, TQXParamType::None, {});
    const auto Value = [this](std::string_view Name) { return Script().FindParam(Name)->Value(); };

    EXPECT_EQ(Run("Result = Flag + ' ' + Count + ' ' + Any"), "false 0 undefined");
    EXPECT_EQ(Value("Any"), TQXVariant());
    Run("Flag = 'yes'; Count = '42'; Any = Action");
    EXPECT_EQ(Value("Flag"), TQXVariant(true));
    EXPECT_EQ(Value("Count"), TQXVariant(42));
    EXPECT_EQ(Value("Any"), TQXVariant(&Action));
    Run("Any = -3");
    EXPECT_EQ(Value("Any"), TQXVariant(-3));
    CheckTable("scripts", "Converts outputs to their types",
               [this](const TColumns& Row) { return TColumns{Run(Row[0])}; });
    EXPECT_EQ(Value("Count"), TQXVariant(42)) << "a failed script gives nothing back";
}

TEST_F(ScriptEngine, ReportsFailuresWithTheirLine)
{
    CheckTable("scripts", "Reports failures with their line",
               [this](const TColumns& Row) { return TColumns{Run(Row[0])}; });
}

TEST_F(ScriptEngine, ReadsAndWritesProperties)
{
    Action.Lines = TStringList{"a", "b"};
    CheckTable("scripts", "Reads and writes properties", [this](const TColumns& Row) { return TColumns{Run(Row[0])}; });
    EXPECT_FALSE(Action.Flag);
    EXPECT_EQ(Action.Count, 8);
    EXPECT_EQ(Action.Colour, TSampleColour::Blue);
    EXPECT_THAT(Action.Lines.Items(), ElementsAre("a", "b", "c"));
}

TEST_F(ScriptEngine, RefusesWhatAPropertyCannotHold)
{
    CheckTable("scripts", "Refuses what a property cannot hold",
               [this](const TColumns& Row) { return TColumns{Run(Row[0])}; });
    EXPECT_THAT(Run("Action.Lines.push('c')"), HasSubstr("1: TypeError: "));
    EXPECT_EQ(Action.Text + std::to_string(Action.Count), "7");
}

TEST_F(ScriptEngine, CallsMethods)
{
    CheckTable("scripts", "Calls methods", [this](const TColumns& Row) { return TColumns{Run(Row[0])}; });
    EXPECT_THAT(Run("Action.ExpandExpression('%Gone%')"), HasSubstr("Gone"));
    EXPECT_TRUE(Host.Log.ExpansionErrors.empty());
    EXPECT_THAT(Host.Log.Messages, ElementsAre("one", "2"));
    EXPECT_THAT(List.Entries, ElementsAre("AssemblyTitle=A quoted", "CLSCompliant=false"));
    EXPECT_EQ(Fetches, 1) << "once, by the script that used it";
}

TEST_F(ScriptEngine, NothingOfAScriptThatFailsStays)
{
    SetTimeLimit(std::chrono::milliseconds(500));
    Action.Lines = TStringList{"a"};
    List.Entries = {"before"};
    CheckTable("scripts", "fails in the middle", [this](const TColumns& Row) {
        const std::string Error = Run(Row[0]);
        EXPECT_EQ(Action.Text + std::to_string(Action.Count) + Action.Lines.Text() + Options.Location,
                  "7a\r\n/opt/tool");
        EXPECT_THAT(List.Entries, ElementsAre("before"));
        return TColumns{Error};
    });
    EXPECT_EQ(Run("Entries.AddEntry('a', 'b', false); Action.Text = 'x'; Action.Text += 'y'"), "as it was");
    EXPECT_EQ(Action.Text, "xy");
    EXPECT_THAT(List.Entries, ElementsAre("before", "a=b"));
}

TEST_F(ScriptEngine, ParsesWithoutRunning)
{
    CheckTable("scripts", "Parses without running", [this](const TColumns& Row) {
        Script().SetText(Row[0]);
        const auto Failure = Host.Runtime.ScriptEngine()->Parse(Script(), Host.Runtime.ScriptingServices());
        return TColumns{Failure ? std::to_string(Failure->Line) + ": " + Failure->Reason : "yes"};
    });
    EXPECT_EQ(Action.Count, 7);
}

TEST_F(ScriptEngine, EndsScriptsThatRunTooLong)
{
    SetTimeLimit(std::chrono::milliseconds(150));
    CheckTable("scripts", "endless", [this](const TColumns& Row) {
        const auto Begin = std::chrono::steady_clock::now();
        const std::string Result = Run(Row[0]);
        EXPECT_LT(std::chrono::steady_clock::now() - Begin, std::chrono::seconds(3));
        return TColumns{Result.substr(0, Result.find(':')), Result.substr(Result.find(':') + 2)};
    });
}

TEST_F(ScriptEngine, TakesTheTimeLimitOfTheOptions)
{
    Host.SetOptions("[host]\nscript_timeout = 1\n");
    Host.Runtime.SetScriptEngineSource([] { return std::make_unique<TDuktapeEngine>(); });
    EXPECT_EQ(Run("for (;;) ;"), "1: the script ran longer than 1 second");
}

TEST_F(ScriptEngine, EndsWhenTheRunEnds)
{
    EXPECT_EQ(Run("\nEndOfRun; for (;;) ;"), "2: the run was ended");
}

TEST_F(ScriptEngine, KeepsToItsMemoryAndStack)
{
    CheckTable("scripts", "Keeps to its memory and stack",
               [this](const TColumns& Row) { return TColumns{Run(Row[0])}; });
    EXPECT_EQ(Run("var o = {};\no.__defineGetter__('x', function () { return o.x });\no.x"),
              "2: the script nests too deep");
    EXPECT_LT(Run("throw 'x'.repeat(1e6)").size(), 5000u);
    CheckTable("scripts", "too deep", [this](const TColumns& Row) {
        EXPECT_THAT(Run(Row[0]), AnyOf(HasSubstr("limit"), HasSubstr("too deep")));
        return TColumns();
    });
    TSecretMask Mask;
    Mask.Add("my phrase");
    Host.Settings.Secrets = &Mask;
    EXPECT_EQ(Run("throw 'x'.repeat(4090) + 'my phrase'"), "1: " + std::string(4090, 'x') + "...");
    for (const std::string Text :
         {"Action[Array(97).join('x') + 'my phrase'] = 1", "Action.Colour = Array(97).join('x') + 'my phrase'"})
        EXPECT_THAT(Run(Text), HasSubstr("\"" + std::string(96, 'x') + "\"")) << Text;
}
