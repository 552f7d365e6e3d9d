#include "platform/Processes.h"
#include "runtime/scripting/DuktapeEngine.h"
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

class TEntryList final : public TQXPersistent
{
public:
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

    struct TCase
    {
        std::string Text;
        std::string Expected;
    };
    void Check(const std::vector<TCase>& Cases)
    {
        for (const TCase& Case : Cases)
            EXPECT_EQ(Run(Case.Text), Case.Expected) << Case.Text;
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
    Check({
        {"", "as it was"},
        {"Result = 'lib/' + Name;", "lib/Straße 🙂.dll"},
        {"var Result = Name.length", "13"},
        {"Result = Name.substr(7, 2) === '🙂' ? '\\ud83d\\ude42' : 'no'", "🙂"},
        {"Result = '\\ud83d|'", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD|"},
        {"Result = 1.5", "1.5"},
        {"Result = [1, 2]", "1,2"},
        {"Result = {toString: function () { return 'text' }}", "text"},
        {"Result = typeof Missing + typeof Duktape + typeof Uint8Array + typeof String.fromBufferRaw + typeof require",
         "undefinedundefinedundefinedundefinedundefined"},
        {"Result = Dark + Light + typeof Date", "DarkLightfunction"},
        {"Result = JSON.stringify({a: /x(\\d)/.exec('x5')[1], b: new Date(0).getTime()})", "{\"a\":\"5\",\"b\":0}"},
    });
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
    Check({
        {"Count = 'many'", "0: RangeError: \"Count\" expects an integer, not nan"},
        {"Count = 1e10", "0: RangeError: \"Count\" expects an integer, not 10000000000"},
        {"Flag = 1; Result = null", "0: TypeError: \"Result\" is null when the script ends"},
        {"Result = {toString: function () {\nthrow 'no text' }}", "2: no text"},
    });
    EXPECT_EQ(Value("Count"), TQXVariant(42)) << "a failed script gives nothing back";
}

TEST_F(ScriptEngine, ReportsFailuresWithTheirLine)
{
    Check({
        {"var a = 1;\n\nb.c();", "3: ReferenceError: identifier 'b' undefined"},
        {"\r\nnull.x", "2: TypeError: cannot read property 'x' of null"},
        {"throw new Error('stopped here')", "1: Error: stopped here"},
        {"\nfunction fail() {\n  throw 'just text';\n}\nfail();", "3: just text"},
        {"\n\nthrow {toString: function () { throw 1 }}", "3: the script failed with an error that has no text"},
        {"Result = 1;\nif (", "2: SyntaxError: parse error"},
        {"a b", "1: SyntaxError: unterminated statement"},
        {"\n[3, 2].sort(function () {\n throw new Error('in there') })", "3: Error: in there"},
        {"eval('\\n\\n nonsense(')", "3: SyntaxError: parse error"},
    });
}

TEST_F(ScriptEngine, ReadsAndWritesProperties)
{
    Action.Lines = TStringList{"a", "b"};
    Check({
        {"Action.Text = Name; Action.Flag = !Action.Flag; Action.Count += 1; Result = Action.Text + Action.Length",
         "Straße 🙂.dll16"},
        {"Action.Colour = 'Blue'; Action.Colours = ['Red', Action.Colour]; Result = Action.Colours", "Red,Blue"},
        {"Action.Lines = Action.Lines.concat('c'); Result = Action.Lines.length", "3"},
        {"for (var Each in Action) Result += ' ' + Each",
         "as it was Text Flag Count Colour Colours Lines Length Override Version"},
        {"Result = JSON.stringify(Action)",
         R"({"Text":"Straße 🙂.dll","Flag":false,"Count":8,"Colour":"Blue","Colours":["Red","Blue"],)"
         R"("Lines":["a","b","c"],"Length":16,"Override":false,"Version":"v2.0"})"},
        {"Result = typeof Action.Nonsense + ('Text' in Action) + ('x' in Action) + Action",
         "undefinedtruefalse[object Object]"},
    });
    EXPECT_FALSE(Action.Flag);
    EXPECT_EQ(Action.Count, 8);
    EXPECT_EQ(Action.Colour, TSampleColour::Blue);
    EXPECT_THAT(Action.Lines.Items(), ElementsAre("a", "b", "c"));
}

TEST_F(ScriptEngine, RefusesWhatAPropertyCannotHold)
{
    Check({
        {"\nAction.Text = 5", "2: TypeError: \"Text\" expects a string, not a number"},
        {"Action.Text = null", "1: TypeError: \"Text\" expects a string, not null"},
        {"Action.Flag = 'true'", "1: TypeError: \"Flag\" expects a Boolean, not a string"},
        {"Action.Count = '5'", "1: TypeError: \"Count\" expects an integer, not a string"},
        {"Action.Count = 0.5", "1: RangeError: \"Count\" expects an integer, not 0.5"},
        {"Action.Count = -2147483649", "1: RangeError: \"Count\" expects an integer, not -2147483649"},
        {"Action.Colour = 'Gren'", "1: TypeError: \"Colour\" has no value \"Gren\"; did you mean \"Green\"?"},
        {"Action.Colour = 'x'",
         "1: TypeError: \"Colour\" has no value \"x\"; its values are \"Red\", \"Green\", \"Blue\""},
        {"Action.Colours = 'Red'", "1: TypeError: \"Colours\" expects an array of names, not a string"},
        {"Action.Lines = ['a', 1]", "1: TypeError: \"Lines\" expects an array of strings, not a number"},
        {"Action.Lines = {length: 1}", "1: TypeError: \"Lines\" expects an array of strings, not an object"},
        {"Action.Length = 5", "1: TypeError: \"Length\" cannot be changed"},
        {"Action.text = 'x'", "1: TypeError: Action has no property \"text\"; did you mean \"Text\"?"},
        {"Action.SendMessage = 1", "1: TypeError: \"SendMessage\" is a method and cannot be changed"},
        {"try { Action.Cuont = 5 } catch (e) { Result = e instanceof TypeError && e.message }",
         "Action has no property \"Cuont\"; did you mean \"Count\"?"},
    });
    EXPECT_THAT(Run("Action.Lines.push('c')"), HasSubstr("1: TypeError: "));
    EXPECT_EQ(Action.Text + std::to_string(Action.Count), "7");
}

TEST_F(ScriptEngine, CallsMethods)
{
    Check({
        {"Action.SendMessage('one'); Action.SendMessage(2)", "as it was"},
        {"Result = Action.ExpandExpression('%Config%|100%%')", "Release|100%"},
        {"\ntry { Action.ExpandExpression('%Gone%') } catch (e) { Result = 'caught' }", "caught"},
        {"Result = Entries.AddEntry('AssemblyTitle', 'A', true) + Entries.AddEntry('CLSCompliant', 'false', false)",
         "3"},
        {"Entries.AddEntry('a', 'b')",
         "1: TypeError: AddEntry(EntryName, EntryValue, IsQuoted) was called with 2 arguments"},
        {"Entries.AddEntry('a', 'b', 'false')", "1: TypeError: \"IsQuoted\" expects a Boolean, not a string"},
        {"Action.AddEntry('a', 'b', true)",
         "1: TypeError: undefined not callable (property 'AddEntry' of [object Object])"},
        {"Entries.AddEntry.call(Action, 'a', 'b', true)", "1: TypeError: \"AddEntry\" was called on another object"},
        {"Action.SendMessage.call(Entries, 'a')", "1: TypeError: \"SendMessage\" was called on what is not an action"},
        {"var send = Action.SendMessage;\nsend('a')", "2: TypeError: \"SendMessage\" was called without its object"},
        {"SampleOptions.Location += '/bin'; Result = SampleOptions.Location", "/opt/tool/bin"},
        {"Result = BrokenOptions", "1: Error: options.toml is broken"},
    });
    EXPECT_THAT(Run("Action.ExpandExpression('%Gone%')"), HasSubstr("Gone"));
    EXPECT_TRUE(Host.Log.ExpansionErrors.empty());
    EXPECT_THAT(Host.Log.Messages, ElementsAre("one", "2"));
    EXPECT_THAT(List.Entries, ElementsAre("AssemblyTitle=A quoted", "CLSCompliant=false"));
    EXPECT_EQ(Fetches, 1) << "once, by the script that used it";
}

TEST_F(ScriptEngine, EndsScriptsThatRunTooLong)
{
    SetTimeLimit(std::chrono::milliseconds(150));
    const std::vector<TCase> Cases = {
        {"Action.Flag = true;\nfor (;;) ;", "2"},
        {"try { for (;;) ; } catch (e) {} finally {\n for (;;) ; }", "1"},
        {"function f() {\n try { f() } finally { f() } }\nf()", "2"},
        {"\n[].indexOf.call({length: 2e9}, 1)", "2"},
        {"var a = [];\na.length = 4e9; a.reverse()", "2"},
        {"var s = 'a'.repeat(4e6);\ns.indexOf(s.substr(0, 2e6) + 'b')", "2"},
        {"/(a+)+$/.test(Array(40).join('a') + 'b')", "1"},
        {"var s = '1'.repeat(1e7);\nfor (;;) +s", "2"},
        {"Result = {toString:\n function () { for (;;) ; }}", "2"},
        {"var e = new Error('x');\nObject.defineProperty(e, 'lineNumber', {get:\n function () { for (;;) ; }});\nthrow "
         "e",
         "3"},
        {"for (;;) Action.Text = Action.Text", "1"},
    };
    for (const TCase& Case : Cases)
    {
        const auto Begin = std::chrono::steady_clock::now();
        EXPECT_EQ(Run(Case.Text), Case.Expected + ": the script ran longer than 0.15 seconds") << Case.Text;
        EXPECT_LT(std::chrono::steady_clock::now() - Begin, std::chrono::seconds(3)) << Case.Text;
    }
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
    Check({
        {"\nvar a = [];\nfor (;;) a.push('x'.repeat(1e5) + a.length)",
         "3: the script needs more than 64 MiB of memory"},
        {"var s = 'x';\nfor (;;) s += s", "2: the script needs more than 64 MiB of memory"},
        {"var s = 'x'.repeat(5e6), a = [];\nfor (var i = 0; i < 100; i++) a.push(s);\nAction.Lines = a",
         "3: RangeError: the array for \"Lines\" is too large"},
        {"for (var i = 0; i < 100; i++) { var s = 'x'.repeat(1e6) + i } Result = i", "100"},
    });
    EXPECT_EQ(Run("var o = {};\no.__defineGetter__('x', function () { return o.x });\no.x"),
              "2: the script nests too deep");
    EXPECT_LT(Run("throw 'x'.repeat(1e6)").size(), 5000u);
    for (const std::string Text :
         {"function f() { f() } f()", "eval(Array(1e5).join('('))", "JSON.parse(Array(1e5).join('['))",
          "var o = {}; for (var i = 0; i < 1e5; i++) o = {o: o}; JSON.stringify(o)", "new RegExp(Array(1e5).join('('))",
          "function f() { [1].forEach(f) } f()", "var o = {toString: function () { return '' + o }}; Result = o",
          "eval('a = ' + Array(1e5).join('-+') + '1')", "/(a|b)*c/.test(Array(1e5).join('a'))",
          "function f() { return new Function('f()')() } f()"})
        EXPECT_THAT(Run(Text), AnyOf(HasSubstr("limit"), HasSubstr("the script nests too deep"))) << Text;
}
